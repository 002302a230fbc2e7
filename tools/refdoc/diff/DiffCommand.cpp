#include "tools/refdoc/diff/DiffCommand.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/check/TargetOptions.hpp"
#include "tools/refdoc/cli/CommandLine.hpp"
#include "tools/refdoc/diff/DiffRun.hpp"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace refdoc {

namespace fs = std::filesystem;

using namespace diff;
using fl::i18n::to_string;
using fl::i18n::to_ustring;

namespace {

// Both files get the name of the new one, so that they are the same product to the library.
SingleFile singleFile(const fs::path& path, const fs::path& newPath, const std::u16string& shown) {
    fs::path name = newPath.stem();
    name += path.extension();
    return {.path = path,
            .name = std::move(name),
            .folder = check::folderFor(path, path),
            .shownPath = to_string(fs::path(shown).generic_u16string())};
}

Answer compare(std::unique_ptr<Tree> oldTree, std::unique_ptr<Tree> newTree,
               DiffSettings settings) {
    oldTree->load();
    newTree->load();
    Tree::align(*oldTree, *newTree);
    return runComparison(std::move(oldTree), std::move(newTree), std::move(settings));
}

// A language of one tree is a language of both. Otherwise, its files would be products of the other
// one. Without --lang, the language is that of the old tree.
Answer compareFolders(const fs::path& oldPath, const fs::path& newPath, const Options& options,
                      DiffSettings settings) {
    auto oldTree = std::make_unique<Tree>(oldPath, options);
    auto newTree = std::make_unique<Tree>(newPath, options);
    const std::u16string language = oldTree->language();
    const std::optional<std::string> newValue = options.values.value("--new-lang");
    const std::u16string newLanguage = newValue ? to_ustring(*newValue) : language;
    std::vector<std::u16string> languages = oldTree->languages();
    for (const std::u16string& each : newTree->languages())
        languages.push_back(each);
    languages.push_back(newLanguage);
    oldTree->setLanguages(language, languages);
    newTree->setLanguages(newLanguage, languages);
    return compare(std::move(oldTree), std::move(newTree), std::move(settings));
}

Answer runDiff(const Options& options, const PageSetup& setup) {
    const fs::path oldPath = check::existingPath(options.arguments.at(0), "OLD");
    const fs::path newPath = check::existingPath(options.arguments.at(1), "NEW");
    if (fs::is_directory(oldPath) != fs::is_directory(newPath))
        throw UsageError("OLD and NEW must both be folders or both be files; see refdoc diff "
                         "--help");
    DiffSettings settings = readSettings(options, setup);
    if (fs::is_directory(newPath))
        return compareFolders(oldPath, newPath, options, std::move(settings));
    auto oldTree =
        std::make_unique<Tree>(singleFile(oldPath, newPath, options.arguments.at(0)), options);
    auto newTree =
        std::make_unique<Tree>(singleFile(newPath, newPath, options.arguments.at(1)), options);
    return compare(std::move(oldTree), std::move(newTree), std::move(settings));
}

// One version of a file, as git passes it: the file, its hash and its mode.
struct GitVersion {
    std::u16string file;
    std::u16string mode;

    bool isMissing() const { return mode == u"."; }
};

SingleFile gitFile(const GitVersion& version, const GitVersion& other, const fs::path& path) {
    const fs::path file = version.isMissing() ? fs::path() : fs::absolute(fs::path(version.file));
    const fs::path content = version.isMissing() ? fs::absolute(fs::path(other.file)) : file;
    return {.path = file,
            .name = path.filename(),
            .folder = check::folderFor(path, content),
            .shownPath = to_string(path.generic_u16string())};
}

Answer runGitDiff(const Options& options, const PageSetup& setup) {
    const std::vector<std::u16string>& arguments = options.arguments;
    const fs::path path(arguments.at(0));
    if (arguments.size() == 1)
        return {.output = to_string(arguments.at(0)) + ": unmerged\n"};
    if (arguments.size() < 7)
        throw UsageError("git-diff takes the arguments that git passes to an external diff driver; "
                         "see refdoc git-diff --help");
    const GitVersion oldVersion{arguments.at(1), arguments.at(3)};
    const GitVersion newVersion{arguments.at(4), arguments.at(6)};
    DiffSettings settings = readSettings(options, setup);
    if (options.format == OutputFormat::Text && !options.values.has("--markdown"))
        settings.heading = to_string(arguments.at(0)) + "\n";
    auto oldTree = std::make_unique<Tree>(gitFile(oldVersion, newVersion, path), options);
    auto newTree = std::make_unique<Tree>(gitFile(newVersion, oldVersion, path), options);
    return compare(std::move(oldTree), std::move(newTree), std::move(settings));
}

OptionEntry onlyOption() {
    return {.name = "--only",
            .placeholder = "CLASS",
            .type = ValueType::Choice,
            .help = "Print only the changes of this class",
            .choices = {{"breaking", "something that others rely on is gone, or a default changed"},
                        {"notable", "additions and deprecations"},
                        {"textual", "all other changes"}}};
}

OptionEntry markdownOption() {
    return {.name = "--markdown",
            .help = "Print release notes in Markdown, grouped by product",
            .group = kFormatGroup};
}

} // namespace

CommandEntry diffCommand() {
    return {
        .name = "diff",
        .help = "Print what differs between two documentation trees for a reader",
        .description =
            "OLD and NEW are reference roots or install folders, or single resource files or "
            "packages. Records are compared as the library reads them, in the current language. "
            "Each change is breaking (something that others may link to or rely on is gone, or a "
            "default changed), notable (additions and deprecations) or textual. Files that can't "
            "be read are reported and left out on both sides.",
        .arguments = {{.name = "OLD",
                       .type = ValueType::Path,
                       .isRequired = true,
                       .help = "The earlier folder, file or package"},
                      {.name = "NEW",
                       .type = ValueType::Path,
                       .isRequired = true,
                       .help = "The later folder, file or package"}},
        .options = {onlyOption(),
                    {.name = "--exit-code", .help = "Exit with status 1 if a change was printed"},
                    markdownOption(),
                    {"--new-lang", "L", ValueType::Language,
                     "Read NEW in this language, to compare a root with its translation"}},
        .negative = "With --exit-code, a change was printed.",
        .examples = {{"refdoc diff --only breaking --exit-code v1/help v2/help",
                      "Fail if the new release breaks something that others rely on."},
                     {"refdoc diff --langs en,de --new-lang de help help",
                      "Compare the English documentation with the German one."}},
        .rootUse = RootUse::Never,
        .isRunWithOptions = false,
        .run = runDiff,
    };
}

CommandEntry gitDiffCommand() {
    return {
        .name = "git-diff",
        .help = "Compare two versions of a resource file for git",
        .description = "git calls this command as an external diff driver. The configuration is "
                       "\"*.json diff=refdoc\" in .gitattributes and \"git config "
                       "diff.refdoc.command 'refdoc git-diff'\".",
        .arguments = {{.name = "PATH",
                       .type = ValueType::Path,
                       .isRequired = true,
                       .help = "The file in the repository"},
                      {.name = "VERSION",
                       .type = ValueType::Path,
                       .isList = true,
                       .help = "The file, hash and mode of both versions, as git passes them"}},
        .options = {onlyOption(), markdownOption()},
        .examples = {{"git config diff.refdoc.command 'refdoc git-diff'",
                      "Make git call refdoc for the files with the attribute \"diff=refdoc\"."}},
        .rootUse = RootUse::Never,
        .isRunWithOptions = false,
        .run = runGitDiff,
    };
}

} // namespace refdoc
