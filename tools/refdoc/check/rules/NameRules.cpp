#include "tools/refdoc/check/rules/NameRules.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/Failure.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/path/DirectoryIterator.hpp"
#include "platform/path/Path.hpp"
#include "tools/refdoc/suggest/NearNames.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>

namespace refdoc::check {

using fl::i18n::to_string;
using reference::docparser::DocResourceParser;
using reference::docparser::Fate;
using reference::docparser::FileAccount;
using reference::docparser::FileRole;
using reference::docparser::LoadAccount;
using reference::docparser::ProductPathData;
using Tools = DocResourceParser::ParsingTools;

namespace {

std::u16string lowered(std::u16string_view text) {
    std::u16string lower(text);
    for (char16_t& unit : lower) {
        if (unit >= u'A' && unit <= u'Z')
            unit = static_cast<char16_t>(unit + (u'a' - u'A'));
    }
    return lower;
}

// The name of the file or entry without its folders.
std::u16string baseNameOf(const SourceFile& file) {
    const std::u16string& name = file.entry.empty() ? file.path : file.entry;
    const std::size_t separator = name.find_last_of(u"/\\");
    return separator == name.npos ? name : name.substr(separator + 1);
}

std::u16string stemOf(const SourceFile& file) {
    return fl::filesystem::extract_stem(baseNameOf(file));
}

bool isPackage(const SourceFile& file) {
    return file.entry.empty() && fl::filesystem::extract_extension(file.path) == Tools::kZipExt;
}

bool hasExtensionInOtherCase(const std::u16string& extension) {
    const std::u16string lower = lowered(extension);
    return extension != lower && (lower == Tools::kJsonExt || lower == Tools::kZipExt);
}

// "Orchard.jsn", "Orchard.json.bak", "Orchard.json~".
bool isNearResourceName(const std::u16string& name) {
    const std::u16string lower = lowered(name);
    if (lower.find(Tools::kDotJsonExt) != lower.npos || lower.find(Tools::kDotZipExt) != lower.npos)
        return true;
    const std::u16string extension = fl::filesystem::extract_extension(lower);
    return extension.size() >= 3 && editDistance(extension, Tools::kJsonExt, 1) <= 1;
}

// An object in JSON, or a zip package.
bool isResourceContent(std::string_view start) {
    constexpr std::string_view kSpace = " \t\r\n";
    if (start.starts_with("PK\x03\x04"))
        return true;
    const std::size_t brace = start.find_first_not_of(kSpace);
    if (brace == start.npos || start[brace] != '{')
        return false;
    const std::size_t key = start.find_first_not_of(kSpace, brace + 1);
    return key != start.npos && start[key] == '"';
}

Finding ignored(RuleId rule, const SourceFile& file, std::string_view reason) {
    return {rule, {.file = file}, fmt::format("the file is ignored: {}", reason)};
}

bool isLetters(std::u16string_view text, std::size_t least, std::size_t most) {
    return text.size() >= least && text.size() <= most &&
           std::ranges::all_of(text, [](char16_t unit) {
               return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
           });
}

// "de", "zh_CN", "pt-BR", "eng".
bool isLanguageShaped(std::u16string_view text) {
    const std::size_t separator = text.find_first_of(u"_-");
    if (separator == text.npos)
        return isLetters(text, 2, 3);
    return isLetters(text.substr(0, separator), 2, 3) &&
           isLetters(text.substr(separator + 1), 2, 4);
}

// The longest of the languages but English that the stem ends with; empty when it is English.
std::u16string languageOf(std::u16string_view stem, const std::vector<std::u16string>& languages) {
    std::u16string longest;
    for (const std::u16string& language : languages) {
        if (language != Tools::kEnglishLocale && language.size() >= longest.size() &&
            stem.ends_with(Tools::kLocaleSeparator + language))
            longest = language;
    }
    return longest;
}

// A language as other systems write it too: "zh-cn" for "zh_CN".
std::u16string plainForm(std::u16string_view language) {
    std::u16string form = lowered(language);
    std::ranges::replace(form, u'-', Tools::kLocaleSeparator);
    return form;
}

class LanguageSuffixes {
public:
    LanguageSuffixes(const std::set<NamedFile>& files, const std::vector<std::u16string>& languages)
        : languages_(languages) {
        for (const NamedFile& file : files) {
            if (!file.isIgnored)
                stems_.insert(stemOf(file.source));
        }
    }

    // What is wrong with the language at the end of a stem.
    std::optional<std::string> problemOf(const std::u16string& stem) const {
        if (!languageOf(stem, languages_).empty())
            return std::nullopt;
        for (std::size_t at = stem.find(Tools::kLocaleSeparator); at != stem.npos;
             at = stem.find(Tools::kLocaleSeparator, at + 1)) {
            if (auto problem = problemOf(stem.substr(0, at), stem.substr(at + 1), stem))
                return problem;
        }
        return std::nullopt;
    }

private:
    std::optional<std::string> problemOf(const std::u16string& product,
                                         const std::u16string& suffix,
                                         const std::u16string& stem) const {
        const std::string effect =
            fmt::format("the file counts as English, of a product \"{}\"", to_string(stem));
        if (plainForm(suffix) == Tools::kEnglishLocale)
            return fmt::format("English has no suffix, and \"_{}\" is part of the name; {}",
                               to_string(suffix), effect);
        for (const std::u16string& language : languages_) {
            if (plainForm(language) == plainForm(suffix))
                return fmt::format("\"_{}\" is not the supported language \"{}\"; {}",
                                   to_string(suffix), to_string(language), effect);
        }
        if (isLanguageShaped(suffix) && stems_.contains(product))
            return fmt::format("\"{}\" is no supported language; {}", to_string(suffix), effect);
        return std::nullopt;
    }

    const std::vector<std::u16string>& languages_;
    std::set<std::u16string> stems_;
};

std::string languageText(const std::u16string& language) {
    return language.empty() ? "English" : fmt::format("\"{}\"", to_string(language));
}

void addDisagreement(const SourceFile& package, const SourceFile& entry,
                     const std::vector<std::u16string>& languages, std::vector<Finding>& findings) {
    const std::u16string packageLanguage = languageOf(stemOf(package), languages);
    const std::u16string entryLanguage = languageOf(stemOf(entry), languages);
    if (packageLanguage == entryLanguage)
        return;
    findings.push_back(
        {RuleId::PackageLanguage,
         {.file = entry},
         fmt::format("the package's name says {}, that of its one entry {}; the entry {}",
                     languageText(packageLanguage), languageText(entryLanguage),
                     packageLanguage.empty() ? "counts as English" : "is never read")});
}

void addExtraEntries(const std::vector<const NamedFile*>& entries, std::vector<Finding>& findings) {
    const auto isRead = [](const NamedFile* entry) { return !entry->isIgnored; };
    if (std::ranges::count_if(entries, isRead) != 1)
        return;
    const std::string read = to_string((*std::ranges::find_if(entries, isRead))->source.entry);
    for (const NamedFile* entry : entries) {
        if (entry->isIgnored)
            findings.push_back(
                {RuleId::ExtraEntry,
                 {.file = entry->source},
                 fmt::format("the entry is not read, but counts: the name of \"{}\" decides on its "
                             "language, and not that of the package",
                             read)});
    }
}

} // namespace

void addLookupFiles(const LoadAccount& account, const std::vector<SourceFile>& sources,
                    std::set<NamedFile>& files) {
    for (std::size_t index = 0; index < sources.size(); ++index) {
        const FileAccount& file = account.files[index];
        if (file.role != FileRole::Resources)
            files.insert({sources[index], file.fate == Fate::SkippedName});
    }
}

std::set<NamedFile> listResourceFolder(const std::u16string& folder) {
    std::set<std::u16string> read;
    // Without a suffix to leave out, these are all files that a product can have.
    for (const ProductPathData& file :
         DocResourceParser::getAllProducts(folder, {}, {}).jsonProducts)
        read.insert(file.getFullPath());
    std::set<NamedFile> files;
    // A folder that can't be read has no files to speak of.
    platform::ignoreFailure([&] {
        fl::filesystem::directory_iterator file(fl::filesystem::make_native_form(folder), u"*");
        for (; file.is_open(); file.increment()) {
            const std::u16string path = file.full_pathname().string();
            files.insert({{.path = path}, !read.contains(path)});
        }
    });
    return files;
}

void addIgnoredFiles(const std::set<NamedFile>& files, SourceTexts& texts,
                     std::vector<Finding>& findings) {
    for (const NamedFile& file : files) {
        if (!file.isIgnored)
            continue;
        const std::u16string name = baseNameOf(file.source);
        const std::u16string extension = fl::filesystem::extract_extension(name);
        if (hasExtensionInOtherCase(extension))
            findings.push_back(ignored(RuleId::ExtensionCase, file.source,
                                       fmt::format("its extension has to be \"{}\", in lower case",
                                                   to_string(lowered(extension)))));
        else if (isPackage(file.source))
            findings.push_back(ignored(RuleId::IgnoredFile, file.source,
                                       "packages are read in the lookup folder only"));
        else if (isNearResourceName(name))
            findings.push_back(ignored(RuleId::IgnoredFile, file.source,
                                       "its name is not that of a resource file"));
        else if (isResourceContent(texts.readStart(file.source)))
            findings.push_back(
                ignored(RuleId::IgnoredFile, file.source,
                        "its content looks like a resource file's, its name does not"));
    }
}

void addLanguageFindings(const std::set<NamedFile>& files,
                         const std::vector<std::u16string>& languages,
                         std::vector<Finding>& findings) {
    const LanguageSuffixes suffixes(files, languages);
    for (const NamedFile& file : files) {
        if (file.isIgnored)
            continue;
        if (const auto problem = suffixes.problemOf(stemOf(file.source)))
            findings.push_back({RuleId::UnsupportedLanguage, {.file = file.source}, *problem});
    }
}

void addPackageFindings(const std::set<NamedFile>& files,
                        const std::vector<std::u16string>& languages,
                        std::vector<Finding>& findings) {
    std::map<std::u16string_view, std::vector<const NamedFile*>> packages;
    for (const NamedFile& file : files) {
        if (!file.source.entry.empty())
            packages[file.source.path].push_back(&file);
    }
    for (const auto& [path, entries] : packages) {
        if (entries.size() == 1)
            addDisagreement({.path = std::u16string(path)}, entries.front()->source, languages,
                            findings);
        addExtraEntries(entries, findings);
    }
}

} // namespace refdoc::check
