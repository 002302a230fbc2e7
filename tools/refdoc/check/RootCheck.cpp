#include "tools/refdoc/check/RootCheck.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/HostServices.hpp"
#include "platform/path/Path.hpp"
#include "tools/refdoc/check/FileGroups.hpp"
#include "tools/refdoc/check/findings/PendingFindings.hpp"
#include "tools/refdoc/check/rules/Consequences.hpp"
#include "tools/refdoc/check/rules/ContentRules.hpp"
#include "tools/refdoc/check/rules/CrossFileRules.hpp"
#include "tools/refdoc/check/rules/FileRules.hpp"
#include "tools/refdoc/check/rules/LanguageContents.hpp"
#include "tools/refdoc/check/rules/MergeRules.hpp"
#include "tools/refdoc/check/rules/NameRules.hpp"
#include "tools/refdoc/session/Languages.hpp"
#include "tools/refdoc/session/Parallel.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace refdoc::check {

using reference::docparser::DocResourceParser;
using reference::docparser::FileAccount;
using reference::docparser::LoadAccount;
using reference::docparser::SectionAccount;

namespace {

// The manifest and folders belong to no product.
ProductNamesByFile productsOf(const Findings& findings,
                              const std::vector<std::u16string>& languages) {
    ProductNamesByFile products;
    for (const auto& [file, found] : findings) {
        const std::filesystem::path folder = std::filesystem::path(file.path).parent_path();
        if (folder.filename() == "referenceapi" || folder.filename() == "referenceapi_lookup")
            products[file] = productNameOf(file, languages);
    }
    return products;
}

// Accounts of records take much memory, and the merge losses have what they tell.
FileAccount withoutRecords(FileAccount file) {
    for (SectionAccount& section : file.sections)
        section.records = {};
    return file;
}

std::string nothingToCheck() {
    const auto roots = DocResourceParser::getReferenceRoots();
    const std::filesystem::path catalog = std::filesystem::path(roots->lookupFolder).parent_path();
    for (const auto& [folder, what] :
         {std::pair(catalog.parent_path(), "reference root"), std::pair(catalog, "folder")}) {
        std::error_code ignored; // The library skips a folder that cannot be seen.
        if (!std::filesystem::exists(folder, ignored))
            return fmt::format("nothing to check: the {} {} does not exist{}", what,
                               quoted(folder.u16string()), didYouMean(nearFolders(folder)));
    }
    return fmt::format("nothing to check: there is no resource file in {} or {}",
                       quoted(roots->referenceApiFolder), quoted(roots->lookupFolder));
}

class RootCheck {
public:
    RootCheck(Scope scope, Consequences consequences, const PathNames& names, Progress& progress)
        : scope_(scope),
          consequences_(consequences),
          names_(names),
          progress_(progress),
          languages_(allLanguages()) {} // English first: it reports what translations share

    CheckResult run() {
        retrieveAll();
        checkNames();
        checkFiles();
        mergeLosses_.report(names_, findings_);
        if (scope_ == Scope::Everything) {
            addFolderFindings(hasNames_, findings_);
            checkInstallation();
        }
        std::size_t consequenceCount = 0;
        if (consequences_ == Consequences::Hidden)
            consequenceCount = removeConsequences(languages_, texts_, findings_);
        ProductNamesByFile products = productsOf(findings_, languages_);
        CheckResult result{.findings = std::move(findings_),
                           .products = std::move(products),
                           .fileCount = fileCount_,
                           .consequenceCount = consequenceCount};
        if (scope_ == Scope::Everything && files_.empty())
            result.complaints.push_back(nothingToCheck());
        return result;
    }

private:
    void retrieveAll() {
        addFullProducts(languages_, products_);
        progress_.begin("retrieving", languages_.size() * (products_.size() + 1));
        FullProducts english;
        for (const std::u16string& language : languages_) {
            LanguageContents contents =
                retrieveLanguage(language, products_, english, [&] { progress_.step(); });
            if (language == languages_.front())
                english = contents.products;
            take(std::move(contents));
        }
    }

    void take(LanguageContents contents) {
        LoadAccount& account = contents.account;
        const std::vector<SourceFile> sources = sourceFiles(account);
        mergeLosses_.add(account, sources);
        addLookupFiles(account, sources, lookupFiles_);
        for (std::size_t index = 0; index < sources.size(); ++index) {
            consideredPaths_.insert(sources[index].path);
            FileAccount& file = account.files[index];
            if (wasRead(file) || findUnreadable(file))
                files_.try_emplace(sources[index], withoutRecords(std::move(file)));
        }
        if (scope_ == Scope::Everything)
            addCrossFileFindings(contents, pending_);
        addSectionKeys(contents, sectionKeys_);
        hasNames_ |= contents.hasNames();
    }

    void checkNames() {
        const std::u16string support = *DocResourceParser::getSupportPackageRoot();
        const std::u16string reference = DocResourceParser::getReferenceRoots()->referenceApiFolder;
        checkNames(lookupFiles_);
        addPackageFindings(lookupFiles_, languages_, findings_);
        addCutNames(lookupFiles_, languages_, findings_);
        checkNames(listResourceFolder(reference));
        if (support == reference)
            return;
        const std::set<NamedFile> supportFiles = listResourceFolder(support);
        checkNames(supportFiles);
        addShadowedFiles(supportFiles, consideredPaths_, findings_);
    }

    void checkNames(const std::set<NamedFile>& files) {
        addIgnoredFiles(files, products_, languages_, texts_, findings_);
        addLanguageFindings(files, products_, languages_, findings_);
    }

    void checkFiles() {
        progress_.begin("checking", files_.size());
        fileCount_ = files_.size();
        const std::vector<FileGroup> groups = groupsOf(files_);
        forEachInParallel(groups.size(), [&](std::size_t number) {
            for (const auto* file : groups[number]) {
                checkFile(file->first, file->second);
                progress_.step();
            }
        });
    }

    void checkFile(const SourceFile& file, const FileAccount& account) {
        std::vector<Finding> found;
        if (wasRead(account)) {
            found = findDroppedSections(account, file);
            checkContent(account, file, texts_.read(file), pending_, mergeLosses_, found);
        } else {
            found.push_back(*findUnreadable(account));
        }
        const std::lock_guard lock(mutex_);
        addFindings(found, file, findings_);
    }

    void checkInstallation() {
        const fl::filesystem::path folder(platform::hostServices()->installPath());
        const SourceFile manifest{.path = (folder / u"installation.json").string()};
        const std::string text = texts_.read(manifest);
        fileCount_ += text.empty() ? 0 : 1;
        std::vector<Finding> found = checkManifest(manifest, text);
        addFindings(found, manifest, findings_);
        if (!files_.empty())
            addUndocumented(sectionKeys_, manifest, text, findings_);
    }

    Scope scope_;
    Consequences consequences_;
    const PathNames& names_;
    Progress& progress_;
    std::vector<std::u16string> languages_;
    ProductNames products_;
    SourceTexts texts_;
    PendingFindings pending_;
    MergeLosses mergeLosses_;
    std::set<NamedFile> lookupFiles_;
    std::set<std::u16string> consideredPaths_;
    std::set<std::u16string> sectionKeys_;
    bool hasNames_ = false;
    CheckedFiles files_; // that were read, or have a finding; without the accounts of records
    std::size_t fileCount_ = 0;
    std::mutex mutex_; // guards findings_ while files are checked
    Findings findings_;
};

} // namespace

CheckResult checkRoots(Scope scope, Consequences consequences, const PathNames& names,
                       Progress& progress) {
    return RootCheck(scope, consequences, names, progress).run();
}

} // namespace refdoc::check
