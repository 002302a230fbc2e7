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
#include <utility>

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

constexpr Rule kExtensionCase{
    "extension-case", Severity::Error, "the file is ignored because of the case of its extension",
    "Extensions are case-sensitive: only `json` and, in the lookup folder, `zip` are read. Rename "
    "the file."};

constexpr Rule kIgnoredFile{
    "ignored-file", Severity::Warning, "a file that looks like a resource file is ignored",
    "The name or the first bytes of the file suggest that it should be read, but its name is not "
    "that of a resource file. Only `NAME.json` and, in the lookup folder, `NAME.zip` are read. "
    "Rename the file or move it to another folder. Other files are not reported."};

constexpr Rule kUnsupportedLanguage{
    "unsupported-language", Severity::Warning, "the suffix of the name is not a supported language",
    "A file is a translation only if its name ends with `_` and a supported language other than "
    "English, spelt as the application spells it. With any other suffix, including `_en`, the file "
    "is the English file of a product with that longer name. Rename the file, or list the "
    "languages in `--langs` or `installation.json`.",
    Relation::MisnamesProduct};

constexpr Rule kCutName{
    "cut-product-name", Severity::Error, "the name of a product contains a language suffix",
    "The product name of a translated lookup file ends where the suffix of the language occurs "
    "first. In `Orchard_demo_de.json`, that is before `_demo`: the German records belong to a "
    "product `Orchard`, so they lead to its items or to none. Rename the files of the product.",
    Relation::MisnamesProduct};

constexpr Rule kPackageLanguage{
    "package-language", Severity::Error,
    "the names of a package and of its only entry have different languages",
    "If a package has one entry, the name of the package decides whether the entry is a "
    "translation. If only the package has a language suffix, the entry is never read. If only the "
    "entry has one, it is read as English. Give both names the same suffix."};

constexpr Rule kExtraEntry{
    "extra-entry", Severity::Warning, "an entry that is not read changes how the package is read",
    "All entries of a package count, except packaging metadata. Besides the only resource file, "
    "the package has another entry. The name of the resource file therefore decides its language, "
    "instead of the name of the package. Remove the other entry."};

constexpr Rule kShadowedFile{
    "shadowed-file", Severity::Warning, "the file is never read: another folder has the product",
    "The support-package folder is tried only if the reference root has no usable file of the "
    "product, in English or in the current language. Remove one of the two files."};

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
    return extension.size() >= 3 && nameDistance(extension, Tools::kJsonExt, 1) <= 1;
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

// The longest of the languages other than English that the stem ends with; empty if there is none.
std::u16string languageOf(std::u16string_view stem, const std::vector<std::u16string>& languages) {
    std::u16string longest;
    for (const std::u16string& language : languages) {
        if (language != Tools::kEnglishLocale && language.size() >= longest.size() &&
            stem.ends_with(Tools::kLocaleSeparator + language))
            longest = language;
    }
    return longest;
}

// A language in the form that its variants have in common: "zh_cn" for "zh-CN" and "zh_CN".
std::u16string plainForm(std::u16string_view language) {
    std::u16string form = lowered(language);
    std::ranges::replace(form, u'-', Tools::kLocaleSeparator);
    return form;
}

// What is wrong with the language at the end of a stem.
struct SuffixProblem {
    std::string message{};
    std::optional<std::u16string> newStem{}; // if it can only mean this one
};

class LanguageSuffixes {
public:
    LanguageSuffixes(const std::set<std::u16string>& products,
                     const std::vector<std::u16string>& languages)
        : languages_(languages), products_(products) {}

    std::optional<SuffixProblem> problemOf(const std::u16string& stem) const {
        if (!languageOf(stem, languages_).empty())
            return std::nullopt;
        for (std::size_t at = stem.find_first_of(kSeparators); at != stem.npos;
             at = stem.find_first_of(kSeparators, at + 1)) {
            const std::u16string product = stem.substr(0, at);
            const std::u16string suffix = stem.substr(at + 1);
            auto problem = stem[at] == Tools::kLocaleSeparator
                               ? problemOf(product, suffix, stem)
                               : separatorProblemOf(product, suffix, stem);
            if (problem)
                return problem;
        }
        return std::nullopt;
    }

private:
    static constexpr const char16_t* kSeparators = u"_-. ";

    static std::string effectOf(const std::u16string& stem) {
        return fmt::format("the file is read as the English file of a product \"{}\"",
                           to_string(stem));
    }

    // "Orchard-de" beside "Orchard". A name with a hyphen may be intended, so there is no fix.
    std::optional<SuffixProblem> separatorProblemOf(const std::u16string& product,
                                                    const std::u16string& suffix,
                                                    const std::u16string& stem) const {
        const auto isSuffix = [&](const std::u16string& language) {
            return language != Tools::kEnglishLocale && plainForm(language) == plainForm(suffix);
        };
        const auto language = std::ranges::find_if(languages_, isSuffix);
        if (language == languages_.end() || !products_.contains(product))
            return std::nullopt;
        return SuffixProblem{
            fmt::format("the separator before a language must be \"_\", as in \"{}_{}\"; {}",
                        to_string(product), to_string(*language), effectOf(stem))};
    }

    std::optional<SuffixProblem> problemOf(const std::u16string& product,
                                           const std::u16string& suffix,
                                           const std::u16string& stem) const {
        const std::string effect = effectOf(stem);
        if (plainForm(suffix) == Tools::kEnglishLocale)
            return SuffixProblem{
                fmt::format("English files have no suffix, so \"_{}\" is part of the name; {}",
                            to_string(suffix), effect)};
        const auto isMeant = [&](const std::u16string& language) {
            return plainForm(language) == plainForm(suffix);
        };
        if (const auto language = std::ranges::find_if(languages_, isMeant);
            language != languages_.end()) {
            SuffixProblem problem{
                fmt::format("\"_{}\" differs from the supported language \"{}\"; {}",
                            to_string(suffix), to_string(*language), effect)};
            if (std::find_if(language + 1, languages_.end(), isMeant) == languages_.end())
                problem.newStem = product + Tools::kLocaleSeparator + *language;
            return problem;
        }
        if (isLanguageShaped(suffix) && products_.contains(product))
            return SuffixProblem{
                fmt::format("\"{}\" is not a supported language; {}", to_string(suffix), effect)};
        return std::nullopt;
    }

    const std::vector<std::u16string>& languages_;
    const std::set<std::u16string>& products_;
};

std::string languageText(const std::u16string& language) {
    return language.empty() ? "English" : fmt::format("\"{}\"", to_string(language));
}

void addDisagreement(const SourceFile& entry, const std::vector<std::u16string>& languages,
                     Findings& findings) {
    const std::u16string packageLanguage = languageOf(stemOf({.path = entry.path}), languages);
    const std::u16string entryLanguage = languageOf(stemOf(entry), languages);
    if (packageLanguage == entryLanguage)
        return;
    findings[entry].push_back(
        {.rule = &kPackageLanguage,
         .message = fmt::format("the name of the package says {}, the name of its only entry says "
                                "{}; the entry is {}",
                                languageText(packageLanguage), languageText(entryLanguage),
                                packageLanguage.empty() ? "read as English" : "never read")});
}

void addExtraEntries(const std::vector<const NamedFile*>& entries, Findings& findings) {
    const auto isRead = [](const NamedFile* entry) { return !entry->isIgnored; };
    if (std::ranges::count_if(entries, isRead) != 1)
        return;
    const std::string read = to_string((*std::ranges::find_if(entries, isRead))->source.entry);
    for (const NamedFile* entry : entries) {
        if (entry->isIgnored)
            findings[entry->source].push_back(
                {.rule = &kExtraEntry,
                 .message = fmt::format("the entry is not read, but because of it the name of "
                                        "\"{}\" decides the language, not that of the package",
                                        read)});
    }
}

// Why a file that the library ignores may be meant as a resource file; no rule if it is not.
struct Suspicion {
    const Rule* rule = nullptr;
    std::string reason{};
    std::optional<Fix> fix{};
};

Fix renamed(const std::u16string& stem, const std::u16string& extension) {
    return {.newName = stem + u'.' + extension};
}

Suspicion suspicionOf(const SourceFile& file, const LanguageSuffixes& suffixes,
                      SourceTexts& texts) {
    const std::u16string name = baseNameOf(file);
    const std::u16string extension = fl::filesystem::extract_extension(name);
    if (hasExtensionInOtherCase(extension)) {
        const std::u16string lower = lowered(extension);
        const auto problem = suffixes.problemOf(stemOf(file));
        return {&kExtensionCase,
                fmt::format("its extension must be \"{}\", in lower case", to_string(lower)),
                renamed(problem && problem->newStem ? *problem->newStem : stemOf(file), lower)};
    }
    if (isPackage(file))
        return {&kIgnoredFile, "packages are read only in the lookup folder"};
    if (isNearResourceName(name))
        return {&kIgnoredFile, "its name is not that of a resource file"};
    if (isResourceContent(texts.readStart(file)))
        return {&kIgnoredFile, "its content is that of a resource file, but its name is not"};
    return {};
}

} // namespace

std::span<const Rule* const> nameRules() {
    static constexpr const Rule* kRules[] = {
        &kExtensionCase,   &kIgnoredFile, &kUnsupportedLanguage, &kCutName,
        &kPackageLanguage, &kExtraEntry,  &kShadowedFile};
    return kRules;
}

std::u16string productNameOf(const SourceFile& file, const std::vector<std::u16string>& languages) {
    std::u16string stem = stemOf({.path = file.path});
    if (const std::u16string language = languageOf(stem, languages); !language.empty())
        stem.resize(stem.size() - language.size() - 1);
    return stem;
}

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
    // Without locale suffixes, the list has the files of all languages.
    for (const ProductPathData& file :
         DocResourceParser::getAllProducts(folder, {}, {}).jsonProducts)
        read.insert(file.getFullPath());
    std::set<NamedFile> files;
    // A folder that can't be read has no files to check.
    platform::ignoreFailure([&] {
        fl::filesystem::directory_iterator file(fl::filesystem::make_native_form(folder), u"*");
        for (; file.is_open(); file.increment()) {
            const std::u16string path = file.full_pathname().string();
            files.insert({{.path = path}, !read.contains(path)});
        }
    });
    return files;
}

void addIgnoredFiles(const std::set<NamedFile>& files, const std::set<std::u16string>& products,
                     const std::vector<std::u16string>& languages, SourceTexts& texts,
                     Findings& findings) {
    const LanguageSuffixes suffixes(products, languages);
    for (const NamedFile& file : files) {
        if (!file.isIgnored)
            continue;
        Suspicion suspicion = suspicionOf(file.source, suffixes, texts);
        if (suspicion.rule)
            findings[file.source].push_back(
                {.rule = suspicion.rule,
                 .message = fmt::format("the file is ignored: {}", suspicion.reason),
                 .fix = std::move(suspicion.fix)});
    }
}

void addLanguageFindings(const std::set<NamedFile>& files, const std::set<std::u16string>& products,
                         const std::vector<std::u16string>& languages, Findings& findings) {
    const LanguageSuffixes suffixes(products, languages);
    std::u16string reportedPackage;
    for (const auto& [source, isIgnored] : files) {
        // The entries of a package usually have the suffix of its name. They come after it.
        if (isIgnored || source.path == reportedPackage)
            continue;
        const std::u16string stem = stemOf(source);
        auto problem = suffixes.problemOf(stem);
        if (!problem)
            continue;
        Finding finding{.rule = &kUnsupportedLanguage,
                        .message = std::move(problem->message),
                        .cause = to_string(stem.substr(stem.find_last_of(u"_-. ") + 1))};
        if (problem->newStem)
            finding.fix =
                renamed(*problem->newStem, fl::filesystem::extract_extension(baseNameOf(source)));
        findings[source].push_back(std::move(finding));
        if (isPackage(source))
            reportedPackage = source.path;
    }
}

void addCutNames(const std::set<NamedFile>& files, const std::vector<std::u16string>& languages,
                 Findings& findings) {
    for (const auto& [source, isIgnored] : files) {
        const std::u16string stem = stemOf(source);
        const std::u16string language = languageOf(stem, languages);
        const std::u16string suffix = Tools::kLocaleSeparator + language;
        const std::size_t cut = stem.find(suffix);
        if (isIgnored || isPackage(source) || language.empty() ||
            cut + suffix.size() == stem.size())
            continue;
        findings[source].push_back(
            {.rule = &kCutName,
             .message = fmt::format(
                 "in the language \"{}\", the product name \"{}\" is cut to \"{}\"",
                 to_string(language), to_string(stem.substr(0, stem.size() - suffix.size())),
                 to_string(stem.substr(0, cut)))});
    }
}

void addPackageFindings(const std::set<NamedFile>& files,
                        const std::vector<std::u16string>& languages, Findings& findings) {
    std::map<std::u16string_view, std::vector<const NamedFile*>> packages;
    for (const NamedFile& file : files) {
        if (!file.source.entry.empty())
            packages[file.source.path].push_back(&file);
    }
    for (const auto& [path, entries] : packages) {
        if (entries.size() == 1)
            addDisagreement(entries.front()->source, languages, findings);
        addExtraEntries(entries, findings);
    }
}

void addShadowedFiles(const std::set<NamedFile>& files, const std::set<std::u16string>& considered,
                      Findings& findings) {
    for (const NamedFile& file : files) {
        if (!file.isIgnored && !considered.contains(file.source.path))
            findings[file.source].push_back(
                {.rule = &kShadowedFile,
                 .message = "the file is never read: the reference root has the product"});
    }
}

} // namespace refdoc::check
