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
#include <future>
#include <iterator>
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
        // Each product is read while the pages of the one before it are made.
        std::future<ReadProduct> next = startReading(*products.begin());
        for (auto name = products.begin(); name != products.end(); ++name) {
            auto [product, failures] = next.get();
            if (std::ranges::all_of(product.editions, &Edition::isBroken))
                complaints.push_back(complaintAboutProduct(*name, failures));
            product.findings = std::move(findings_.products[*name]);
            if (const auto following = std::next(name); following != products.end())
                next = startReading(*following);
            paths_.choose(*name, product);
            addPages(*name, product);
            directory_.add(*name, product);
            if (linked_.contains(*name)) // some of its pages are made later
                findings_.products[*name] = std::move(product.findings);
            progress.step();
        }
    }

    // Makes the pages that had to wait until the pages of all products were known.
    void addLinkedPages(Progress& progress) {
        progress.begin("linking", linked_.size());
        for (const std::u16string& name : linked_) {
            ReadProduct read = startReading(name).get();
            read.product.findings = std::move(findings_.products[name]);
            paths_.choose(name, read.product);
            std::vector<SiteFile> files;
            forEachItem(read.product, [&](const Edition& edition, const std::u16string& key,
                                          const std::u16string& href) {
                if (mayLeadOutside(read.product, edition, key, href))
                    files.push_back(pageOf(read.product, edition, key, href));
            });
            output_.add(files);
            progress.step();
        }
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
    struct ReadProduct {
        Product product{};
        LoadAccount failures{};
    };

    // On another thread, if the system allows one.
    std::future<ReadProduct> startReading(const std::u16string& name) const {
        return std::async([this, name] {
            ReadProduct read;
            read.product = readProduct(name, languages_, read.failures);
            return read;
        });
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

    auto languageOf(const Edition& edition) const {
        return std::ranges::find(languages_, edition.language, &SiteLanguage::code);
    }

    // Calls use(edition, section, href) for each item of each edition. The editions of an item
    // follow each other, because threads that create files in one folder wait for each other.
    template <class Use>
    static void forEachItem(const Product& product, Use use) {
        for (const auto& [key, pages] : product.pages) {
            for (const auto& [href, path] : pages.items) {
                for (const Edition& edition : product.editions) {
                    if (site::pageOf(product, edition, key, href))
                        use(edition, key, href);
                }
            }
        }
    }

    void addPages(const std::u16string& name, const Product& product) {
        std::vector<SiteFile> files;
        for (const Edition& edition : product.editions) {
            const auto language = languageOf(edition);
            for (const auto& [key, resource] : edition.content->resources)
                files.push_back(
                    {language->folder + product.pages.at(key).index, [&, &key = key](auto&&) {
                         return sectionPage(languages_, product, edition, key);
                     }});
            if (edition.isBroken()) {
                for (const auto& [key, pages] : product.pages)
                    files.push_back({language->folder + pages.index, [&, &key = key](auto&&) {
                                         return brokenPage(languages_, product, edition, key);
                                     }});
            }
            std::ranges::move(
                summariesOf(product, edition),
                std::back_inserter(
                    summaries_[static_cast<std::size_t>(language - languages_.begin())]));
        }
        forEachItem(product, [&](const Edition& edition, const std::u16string& key,
                                 const std::u16string& href) {
            if (mayLeadOutside(product, edition, key, href))
                linked_.insert(name);
            else
                files.push_back(pageOf(product, edition, key, href));
        });
        output_.add(files);
    }

    // The file refers to the arguments.
    SiteFile pageOf(const Product& product, const Edition& edition, const std::u16string& key,
                    const std::u16string& href) const {
        return {languageOf(edition)->folder + product.pages.at(key).items.at(href),
                [&, this](std::string memory) {
                    return itemPage(
                        languages_, product, edition, key, href,
                        [this](const auto& language, const auto& location) {
                            return directory_.pageAt(language, location);
                        },
                        std::move(memory));
                }};
    }

    SiteFolder& output_;
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
