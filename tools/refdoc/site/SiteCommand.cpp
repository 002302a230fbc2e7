#include "tools/refdoc/site/SiteCommand.hpp"

#include "platform/i18n/Converter.hpp"
#include "platform/terminal/OutputDevice.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/json/JsonText.hpp"
#include "tools/refdoc/site/SiteBuild.hpp"
#include "tools/refdoc/terminal/Progress.hpp"

#include <boost/json/value.hpp>
#include <fmt/format.h>

namespace refdoc {

using fl::i18n::to_string;
using site::SiteChanges;

namespace {

boost::json::value documentOf(const std::string& index, const SiteChanges& changes) {
    return {{"index", index},
            {"written", changes.written},
            {"unchanged", changes.unchanged},
            {"removed", changes.removed}};
}

std::string outputOf(const std::string& index, const SiteChanges& changes, OutputFormat format) {
    switch (format) {
    case OutputFormat::Json: return toIndentedJson(documentOf(index, changes));
    case OutputFormat::JsonLines: return toJsonLine(documentOf(index, changes));
    case OutputFormat::Plain: // not an option of this command
    case OutputFormat::Text: break;
    }
    return fmt::format("{}: {} files written, {} unchanged, {} removed\n", index, changes.written,
                       changes.unchanged, changes.removed);
}

Answer runSite(const Options& options, const PageSetup&) {
    Progress progress(platform::askStandardError().isTerminal);
    const std::filesystem::path folder(options.arguments.front());
    site::SiteFolder output(folder, options.values.has("--force")
                                        ? site::SiteFolder::Others::Kept
                                        : site::SiteFolder::Others::Refused);
    Answer answer;
    const auto findings =
        options.values.has("--no-check") ? site::Findings::Hidden : site::Findings::Shown;
    site::addFiles(output, findings, progress, answer.complaints);
    const std::string index = to_string((folder / "index.html").u16string());
    answer.output = outputOf(index, output.publish(), options.format);
    return answer;
}

} // namespace

CommandEntry siteCommand() {
    return {
        .name = "site",
        .help = "Write the documentation of all products as web pages",
        .description =
            "OUT receives a start page, a page for each product and a page for each item, in all "
            "supported languages. The pages need no server. Writing a site again changes only the "
            "files whose content has changed, and removes those that are no longer part of it. If "
            "the command fails, the old site stays.",
        .arguments = {{.name = "OUT",
                       .type = ValueType::Folder,
                       .isRequired = true,
                       .help = "The folder of the site; it is created if it does not exist"}},
        .options = {{.name = "--force",
                     .help = "Keep files in OUT that are not of a site, instead of failing"},
                    {.name = "--no-check",
                     .help = "Leave out the findings of refdoc check, which takes less time"}},
        .examples = {{"refdoc --install samples site build/site",
                      "Write the site of the samples."}},
        .run = runSite,
    };
}

} // namespace refdoc
