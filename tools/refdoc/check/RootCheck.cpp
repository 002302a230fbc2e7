#include "tools/refdoc/check/RootCheck.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/HostServices.hpp"
#include "platform/path/Path.hpp"
#include "tools/refdoc/check/ContentCheck.hpp"
#include "tools/refdoc/check/rules/AccountRules.hpp"
#include "tools/refdoc/check/rules/CrossRules.hpp"
#include "tools/refdoc/check/rules/LanguageRun.hpp"
#include "tools/refdoc/check/rules/NameRules.hpp"
#include "tools/refdoc/check/schema/SchemaWalker.hpp"

#include <boost/json/parse.hpp>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace refdoc::check {

using reference::docparser::DocResourceParser;
using reference::docparser::Fate;
using reference::docparser::FileAccount;
using Tools = DocResourceParser::ParsingTools;

namespace {

// English first, so that what an English file bears is not put on its translations.
std::vector<std::u16string> allLanguages() {
    std::vector<std::u16string> languages{Tools::kEnglishLocale};
    for (const std::u16string& suffix : Tools::getSupportedDocLocales())
        languages.push_back(suffix.substr(1));
    languages.push_back(Tools::getCurrentLocale());
    std::vector<std::u16string> distinct;
    for (std::u16string& language : languages) {
        if (std::ranges::find(distinct, language) == distinct.end())
            distinct.push_back(std::move(language));
    }
    return distinct;
}

SourceFile manifestFile() {
    const fl::filesystem::path folder(platform::hostServices()->installPath());
    return {.path = (folder / u"installation.json").string()};
}

bool wasRead(const FileAccount& file) {
    return file.role != FileRole::Package &&
           (file.fate == Fate::Used || file.fate == Fate::Overlay || file.fate == Fate::Merged ||
            file.fate == Fate::Malformed);
}

class RootCheck {
public:
    RootCheck(Scope scope, const PathNames& names, Progress& progress)
        : scope_(scope), names_(names), progress_(progress), languages_(allLanguages()) {}

    std::vector<Finding> run() {
        retrieveAll();
        checkNames();
        askAbout(losses_, questions_);
        checkContents();
        addLossFindings(losses_, questions_, names_, findings_);
        if (scope_ == Scope::Everything)
            checkInstallation();
        return std::move(findings_);
    }

private:
    void retrieveAll() {
        addFullProducts(languages_, products_);
        progress_.begin("retrieving", languages_.size() * (products_.size() + 1));
        for (const std::u16string& language : languages_)
            take(runLanguage(language, products_, [&] { progress_.step(); }));
    }

    void take(LanguageRun run) {
        const std::vector<SourceFile> sources = sourceFiles(run.account);
        addAccountFindings(run.account, sources, findings_);
        addLosses(run.account, sources, losses_);
        addLookupFiles(run.account, sources, lookupFiles_);
        for (std::size_t index = 0; index < sources.size(); ++index) {
            considered_.insert(sources[index].path);
            if (wasRead(run.account.files[index]))
                readFiles_.try_emplace(sources[index], std::move(run.account.files[index]));
        }
        if (scope_ == Scope::Everything)
            askAcrossFiles(run, questions_);
        addSectionKeys(run, keys_);
    }

    void checkNames() {
        const std::u16string support = *DocResourceParser::getSupportPackageRoot();
        const std::set<NamedFile> resourceFiles =
            listResourceFolder(DocResourceParser::getReferenceRoots()->referenceApiFolder);
        const std::set<NamedFile> supportFiles = listResourceFolder(support);
        for (const auto& files : {lookupFiles_, resourceFiles, supportFiles}) {
            addIgnoredFiles(files, texts_, findings_);
            addLanguageFindings(files, languages_, findings_);
        }
        addPackageFindings(lookupFiles_, languages_, findings_);
        for (const NamedFile& file : supportFiles) {
            if (!file.isIgnored && !considered_.contains(file.source.path))
                findings_.push_back({RuleId::ShadowedFile,
                                     {.file = file.source},
                                     "the file is never read: the reference root has the product"});
        }
    }

    void checkContents() {
        progress_.begin("checking", readFiles_.size());
        for (const auto& [file, account] : inLanguageOrder()) {
            checkContent(*account, *file, texts_, questions_, findings_);
            progress_.step();
        }
    }

    // Translations last.
    std::vector<std::pair<const SourceFile*, const FileAccount*>> inLanguageOrder() const {
        std::vector<std::pair<const SourceFile*, const FileAccount*>> files;
        for (const auto& [file, account] : readFiles_)
            files.emplace_back(&file, &account);
        std::stable_partition(files.begin(), files.end(),
                              [](const auto& file) { return !file.second->isTranslation; });
        return files;
    }

    void checkInstallation() {
        Manifest manifest{manifestFile(), {}};
        const std::string text = texts_.read(manifest.file);
        // A malformed manifest has been refused before; none at all is an empty text.
        if (!text.empty())
            manifest.content = boost::json::parse(text);
        addUndocumented(keys_, manifest, findings_);
        std::ranges::move(checkManifest(manifest.file), std::back_inserter(findings_));
    }

    Scope scope_;
    const PathNames& names_;
    Progress& progress_;
    std::vector<std::u16string> languages_;
    ProductNames products_;
    SourceTexts texts_;
    Questions questions_;
    std::set<Loss> losses_;
    std::set<NamedFile> lookupFiles_;
    std::set<std::u16string> considered_; // paths
    std::set<std::u16string> keys_;       // of sections
    std::map<SourceFile, FileAccount> readFiles_;
    std::vector<Finding> findings_;
};

// The languages find much the same.
std::vector<Finding> distinct(std::vector<Finding> findings) {
    const auto keyOf = [](const Finding* finding) {
        const Spot& spot = finding->spot;
        return std::tie(finding->rule, spot.pointer, spot.isAtKey, finding->identity, spot.file);
    };
    const auto hash = [](const Finding* finding) {
        return std::hash<std::optional<std::string>>()(finding->spot.pointer) * 31 +
               std::hash<std::string>()(finding->identity);
    };
    const auto isEqual = [&](const Finding* left, const Finding* right) {
        return keyOf(left) == keyOf(right);
    };
    std::unordered_set<const Finding*, decltype(hash), decltype(isEqual)> seen(findings.size(),
                                                                               hash, isEqual);
    std::vector<Finding*> first;
    for (Finding& finding : findings) {
        if (seen.insert(&finding).second)
            first.push_back(&finding);
    }
    std::vector<Finding> result;
    result.reserve(first.size());
    for (Finding* finding : first)
        result.push_back(std::move(*finding));
    return result;
}

} // namespace

std::vector<Finding> checkRoots(Scope scope, const PathNames& names, Progress& progress) {
    return distinct(RootCheck(scope, names, progress).run());
}

std::vector<Finding> checkManifest(const SourceFile& file) {
    std::vector<Finding> findings;
    const std::string text = SourceTexts().read(file);
    if (text.empty())
        return findings;
    boost::json::error_code error;
    const boost::json::value document = boost::json::parse(text, error);
    if (error) {
        const auto problem = reference::docparser::findSyntaxProblem(text);
        findings.push_back({RuleId::MalformedJson,
                            {.file = file, .place = problem ? problem->place : TextPlace()},
                            "invalid JSON: " + error.message()});
        return findings;
    }
    for (ContentFinding& found : walkDocument(manifestSchema(), document))
        findings.push_back(
            {found.rule,
             {.file = file, .pointer = std::move(found.pointer), .isAtKey = found.isAtKey},
             std::move(found.message),
             std::move(found.identity)});
    return findings;
}

} // namespace refdoc::check
