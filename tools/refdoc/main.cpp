#include "platform/except/IException.hpp"
#include "platform/terminal/Pager.hpp"
#include "platform/terminal/ProgramText.hpp"
#include "tools/refdoc/Commands.hpp"
#include "tools/refdoc/cli/CommandLine.hpp"
#include "tools/refdoc/complete/Completion.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/LanguageNote.hpp"
#include "tools/refdoc/session/Locations.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/LogToStderr.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"
#include "tools/refdoc/terminal/PagerChoice.hpp"

#include <fmt/format.h>

#include <cerrno>
#include <concepts>
#include <cstdio>
#include <exception>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

namespace {

using namespace refdoc;

// What people should know about the choice of folders and languages.
std::vector<std::string> notesOn(const CommandLine& line, const Options& options) {
    if (!readsRoot(line))
        return {};
    std::vector<std::string> notes;
    const auto add = [&](std::optional<std::string> note) {
        if (note)
            notes.push_back(std::move(*note));
    };
    if (platform::askStandardError().isTerminal)
        add(currentFolderNote(options));
    add(unsupportedLanguageNote(options));
    add(uncountedTranslationsNote(options));
    return notes;
}

Answer runCommand(const CommandLine& line) {
    const Options options = resolveOptions(line);
    if (options.verbose)
        logToStandardError();
    if (readsRoot(line) && line.command->isRunWithOptions)
        applyOptions(options);
    const platform::OutputDevice device = platform::askStandardOutput();
    const PageSetup setup = choosePageSetup(options.color, device, readLayoutEnvironment());
    Answer answer = line.command->run(options, setup);
    if (options.format != OutputFormat::Text)
        return answer;
    std::vector<std::string> notes = notesOn(line, options);
    answer.complaints.insert(answer.complaints.begin(), std::move_iterator(notes.begin()),
                             std::move_iterator(notes.end()));
    if (options.mayPage && isLong(answer.output, device))
        answer.pager = choosePager(readPagerEnvironment());
    return answer;
}

Answer failure(const std::string& reason) {
    return {.status = ExitStatus::Failed, .complaints = {reason}};
}

// Calls a function and turns what it throws into an answer.
template <std::invocable Function>
Answer answerOf(Function function) {
    try {
        return function();
    } catch (const UsageError& error) {
        return wrongUsage(commandTable(), error.what());
    } catch (const std::exception& error) {
        return failure(error.what());
    } catch (const foundation::core::except::IException& error) {
        return failure(error.what());
    }
}

Answer answerTo(const std::vector<std::string>& arguments) {
    // Not in the table: the command is for the completion scripts, and the table's options before
    // and after it belong to the command line that is being completed.
    if (!arguments.empty() && arguments.front() == "complete")
        return {.output = completionsOf(commandTable(), {arguments.begin() + 1, arguments.end()})};
    const std::variant<CommandLine, Answer> parsed = parseCommandLine(commandTable(), arguments);
    if (const CommandLine* line = std::get_if<CommandLine>(&parsed))
        return runCommand(*line);
    return std::get<Answer>(parsed);
}

// The output counts as printed only after the system has accepted all of it.
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
    return answer.remainder ? deliver(answerOf(answer.remainder)) : answer.status;
}

} // namespace

int main(int argc, char* argv[]) {
    try {
        const platform::Utf8Output utf8Output;
        return static_cast<int>(
            deliver(answerOf([&] { return answerTo(platform::argumentsInUtf8(argc, argv)); })));
    } catch (const std::exception&) {
        // Standard error or memory has failed, so the exit status is all that can report it.
        return static_cast<int>(ExitStatus::Failed);
    }
}
