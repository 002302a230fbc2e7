#include "platform/except/IException.hpp"
#include "platform/terminal/Pager.hpp"
#include "platform/terminal/ProgramText.hpp"
#include "tools/refdoc/check/CheckCommand.hpp"
#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/complete/Completion.hpp"
#include "tools/refdoc/explain/ExplainCommand.hpp"
#include "tools/refdoc/lookup/LookupCommand.hpp"
#include "tools/refdoc/products/ProductsCommand.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/LanguageNote.hpp"
#include "tools/refdoc/show/ShowCommand.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/LogToStderr.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"
#include "tools/refdoc/terminal/PagerChoice.hpp"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

namespace {

using namespace refdoc;

Answer runWith(const Options& options, const PageSetup& setup) {
    switch (options.command) {
    case Command::Show: return runShow(options, setup);
    case Command::Lookup: return runLookup(options, setup);
    case Command::Explain: return runExplain(options, setup);
    case Command::Check: return runCheck(options, setup);
    case Command::Products: break;
    }
    return runProducts(options, setup);
}

Answer runCommand(const Options& options) {
    if (options.verbose)
        logToStandardError();
    applyOptions(options);
    const platform::OutputDevice device = platform::askStandardOutput();
    const PageSetup setup = choosePageSetup(options.color, device, readLayoutEnvironment());
    Answer answer = runWith(options, setup);
    if (options.format != OutputFormat::Text)
        return answer;
    if (std::optional<std::string> note = unsupportedLanguageNote(options))
        answer.complaints.insert(answer.complaints.begin(), std::move(*note));
    if (options.mayPage && isLong(answer.output, device))
        answer.pager = choosePager(readPagerEnvironment());
    return answer;
}

Answer failure(const std::string& reason) {
    return {.status = ExitStatus::Failed, .complaints = {reason}};
}

Answer answerTo(const std::vector<std::string>& arguments) {
    // Not in the table of commands: it is for the completion scripts, not for people.
    if (!arguments.empty() && arguments.front() == "complete")
        return {.output = completionsOf({arguments.begin() + 1, arguments.end()})};
    try {
        const std::variant<Options, Answer> understood = readCommandLine(arguments);
        if (const Options* options = std::get_if<Options>(&understood))
            return runCommand(*options);
        return std::get<Answer>(understood);
    } catch (const std::exception& error) {
        return failure(error.what());
    } catch (const foundation::core::except::IException& error) {
        return failure(error.what());
    }
}

// Nothing counts as printed before the system has taken it.
bool print(const std::string& text, const std::string& pager) {
    if (!pager.empty() && platform::showThroughPager(pager, text))
        return true;
    const std::size_t written = std::fwrite(text.data(), 1, text.size(), stdout);
    return written == text.size() && std::fflush(stdout) == 0;
}

ExitStatus deliver(Answer answer) {
    if (!print(answer.output, answer.pager)) {
        const std::string cause = std::generic_category().message(errno);
        answer.status = ExitStatus::Failed;
        answer.complaints.push_back("can't write to standard output: " + cause);
    }
    for (const std::string& complaint : answer.complaints)
        fmt::print(stderr, "refdoc: {}\n", visibleLine(complaint));
    return answer.status;
}

} // namespace

int main(int argc, char* argv[]) {
    try {
        const platform::Utf8Output utf8Output;
        return static_cast<int>(deliver(answerTo(platform::argumentsInUtf8(argc, argv))));
    } catch (const std::exception&) {
        // Standard error is gone or memory is; there is no one left to tell.
        return static_cast<int>(ExitStatus::Failed);
    }
}
