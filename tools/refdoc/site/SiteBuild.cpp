#include "tools/refdoc/site/SiteBuild.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/html/Assets.hpp"
#include "tools/refdoc/index/SearchIndex.hpp"
#include "tools/refdoc/pages/Links.hpp"
#include "tools/refdoc/pages/SitePages.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/Parallel.hpp"
#include "tools/refdoc/show/ShowCommand.hpp"
#include "tools/refdoc/site/PageDirectory.hpp"
#include "tools/refdoc/site/ProductReader.hpp"
#include "tools/refdoc/site/SectionSummaries.hpp"
#include "tools/refdoc/site/SiteFindings.hpp"
#include "tools/refdoc/site/SitePaths.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <mutex>
#include <set>
#include <stdexcept>
#include <utility>

namespace refdoc::site {

using namespace reference::docparser;

namespace {

// At a time, because each needs the lookup index of its language.
constexpr std::size_t kMostIndexes = 2;

class SiteBuild {
public:
    explicit SiteBuild(SiteFolder& output)
        : output_(output), languages_(paths_.languages()), summaries_(languages_.size()) {}

    void addProducts(Findings findings, Progress& progress, std::vector<std::string>& complaints) {
        const std::set<std::u16string> products = siteProducts(languages_);
        if (products.empty())
            throw std::runtime_error(fmt::format(
                "no product has a full resource file in {}{}",
                quoted(DocResourceParser::getReferenceRoots()->referenceApiFolder), kOtherFolders));
        if (findings == Findings::Shown)
            findings_ = findFindings(products, progress);
        progress.begin("writing", products.size());
        auto next = products.begin();
        forEachProduct(products.size(), progress, [&] {
            std::unique_lock lock(mutex_);
            const std::u16string& name = *next++;
            LoadAccount failures;
            const Product product = read(name, failures);
            if (std::ranges::all_of(product.editions, &Edition::isBroken))
                complaints.push_back(complaintAboutProduct(name, failures));
            directory_.add(name, product);
            addSummaries(product);
            lock.unlock();
            addPages(name, product);
        });
    }

    // Makes the pages that had to wait until the pages of all products were known, and again those
    // whose links turn out to lead to neighbours.
    void addLinkedPages(Progress& progress) {
        const std::set<std::u16string> neighbours = directory_.neighbours();
        linked_.insert(neighbours.begin(), neighbours.end());
        progress.begin("linking", linked_.size());
        const auto findPage = [this](const auto& language, const auto& location) {
            return directory_.pageAt(language, location);
        };
        auto next = linked_.begin();
        forEachProduct(linked_.size(), progress, [&] {
            std::unique_lock lock(mutex_);
            LoadAccount failures;
            const std::u16string& name = *next++;
            const Product product = read(name, failures);
            lock.unlock();
            forEachItem(product, [&](const Edition& edition, const std::u16string& key,
                                     const std::u16string& href) {
                const Reach reach = reachOfLinks(product, edition, key, href);
                const auto content = [&] {
                    return itemPage(languages_, product, edition, key, href, findPage);
                };
                if (reach == Reach::Everywhere)
                    output_.add(pathOf(product, edition, key, href), content());
                else if (reach == Reach::HelpLocation && neighbours.contains(name))
                    output_.replace(pathOf(product, edition, key, href), content());
            });
        });
    }

    void addSearchIndexes(Progress& progress) {
        progress.begin("indexing", languages_.size());
        forEachInParallel(languages_.size(), kMostIndexes, [&](std::size_t number) {
            addSearchIndex(languages_[number]);
            progress.step();
        });
    }

    void addSharedFiles() {
        for (std::size_t index = 0; index < languages_.size(); ++index) {
            std::vector<SectionSummary>& sections = summaries_[index];
            std::ranges::stable_sort(sections, {}, &SectionSummary::displayName);
            output_.add(languages_[index].folder + std::string(kIndexName),
                        startPage(languages_, languages_[index], sections, findings_.start));
        }
        for (const html::Asset& asset : html::assets())
            output_.add(fmt::format("{}/{}", kAssetFolder, asset.name), asset.content);
    }

private:
    // Each thread has a product of its own: threads that create files in one folder wait for each
    // other.
    static void forEachProduct(std::size_t count, Progress& progress,
                               const std::function<void()>& use) {
        forEachInParallel(count, count, [&](std::size_t) {
            use();
            progress.step();
        });
    }

    // Reads a product for its pages, whose paths depend on the products that were read before.
    Product read(const std::u16string& name, LoadAccount& failures) {
        Product product = readProduct(name, languages_, failures);
        paths_.choose(name, product);
        if (const auto findings = findings_.products.find(name);
            findings != findings_.products.end())
            product.findings = findings->second;
        return product;
    }

    void addSearchIndex(const SiteLanguage& language) {
        const LanguageGuard current(language.code);
        makeSearchIndex(
            DocResourceParser::getResourceLookupFiles(),
            [&](const IndexEntry& entry) { return directory_.pageOf(language.code, entry); },
            [&](const std::string& name, std::string_view content) {
                output_.add(language.search + name, content);
            });
    }

    std::size_t languageNumber(const Edition& edition) const {
        const auto language = std::ranges::find(languages_, edition.language, &SiteLanguage::code);
        return static_cast<std::size_t>(language - languages_.begin());
    }

    void addSummaries(const Product& product) {
        for (const Edition& edition : product.editions)
            std::ranges::move(summariesOf(product, edition),
                              std::back_inserter(summaries_[languageNumber(edition)]));
    }

    const std::string& folderOf(const Edition& edition) const {
        return languages_[languageNumber(edition)].folder;
    }

    std::string pathOf(const Product& product, const Edition& edition, const std::u16string& key,
                       const std::u16string& href) const {
        return folderOf(edition) + product.pages.at(key).items.at(href);
    }

    // Calls use(edition, section, href) for each item of each edition.
    template <class Use>
    static void forEachItem(const Product& product, Use use) {
        for (const Edition& edition : product.editions) {
            for (const auto& [key, resource] : edition.content->resources) {
                for (const auto& [href, items] : resource.items)
                    use(edition, key, href);
            }
        }
    }

    void addPages(const std::u16string& name, const Product& product) {
        for (const Edition& edition : product.editions) {
            for (const auto& [key, pages] : product.pages) {
                const std::string path = folderOf(edition) + pages.index;
                if (edition.isBroken())
                    output_.add(path, brokenPage(languages_, product, edition, key));
                else if (edition.content->resources.contains(key))
                    output_.add(path, sectionPage(languages_, product, edition, key));
            }
        }
        bool mustWait = false;
        forEachItem(product, [&](const Edition& edition, const std::u16string& key,
                                 const std::u16string& href) {
            if (reachOfLinks(product, edition, key, href) == Reach::Everywhere)
                mustWait = true;
            else
                output_.add(pathOf(product, edition, key, href),
                            itemPage(languages_, product, edition, key, href));
        });
        if (mustWait) {
            const std::lock_guard lock(mutex_);
            linked_.insert(name);
        }
    }

    SiteFolder& output_;
    std::mutex mutex_; // guards the other members while products are read
    SitePaths paths_;
    const SiteLanguages& languages_;
    std::vector<std::vector<SectionSummary>> summaries_; // by language
    PageDirectory directory_;
    std::set<std::u16string> linked_; // products with pages that may link to other products
    SiteFindings findings_;
};

} // namespace

void addFiles(SiteFolder& output, Findings findings, Progress& progress,
              std::vector<std::string>& complaints) {
    SiteBuild build(output);
    build.addProducts(findings, progress, complaints);
    build.addLinkedPages(progress);
    build.addSearchIndexes(progress);
    build.addSharedFiles();
}

} // namespace refdoc::site
