#include "tools/refdoc/site/SiteBuild.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/html/Assets.hpp"
#include "tools/refdoc/pages/SearchIndex.hpp"
#include "tools/refdoc/pages/SitePages.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
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
#include <vector>

namespace refdoc::site {

using namespace reference::docparser;

namespace {

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
            // This may change the language, which would disturb the reading.
            paths_.choose(*name, product);
            if (const auto following = std::next(name); following != products.end())
                next = startReading(*following);
            addPages(product);
            directory_.add(*name, product);
            progress.step();
        }
    }

    void addSearchIndexes(Progress& progress) {
        progress.begin("indexing", languages_.size());
        for (const SiteLanguage& language : languages_) {
            const LanguageGuard current(language.code);
            makeSearchIndex(
                DocResourceParser::getResourceLookupFiles(),
                [&](const IndexEntry& entry) { return directory_.pageOf(language.code, entry); },
                [&](const std::string& name, std::string_view content) {
                    output_.add(language.search + name, content);
                });
            progress.step();
        }
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

    void addPages(const Product& product) {
        std::vector<SiteFile> files;
        for (const Edition& edition : product.editions) {
            const auto language =
                std::ranges::find(languages_, edition.language, &SiteLanguage::code);
            for (const auto& [key, resource] : edition.resources)
                addSection(product, edition, key, language->folder, files);
            if (edition.isBroken()) {
                for (const auto& [key, pages] : product.pages)
                    files.push_back({language->folder + pages.index, [&, &key = key] {
                                         return brokenPage(languages_, product, edition, key);
                                     }});
            }
            std::ranges::move(
                summariesOf(product, edition),
                std::back_inserter(
                    summaries_[static_cast<std::size_t>(language - languages_.begin())]));
        }
        output_.add(files);
    }

    // The files refer to the arguments.
    void addSection(const Product& product, const Edition& edition, const std::u16string& key,
                    const std::string& folder, std::vector<SiteFile>& files) const {
        const SectionPages& pages = product.pages.at(key);
        files.push_back({folder + pages.index,
                         [&, this] { return sectionPage(languages_, product, edition, key); }});
        for (const auto& [href, items] : edition.resources.at(key).items)
            files.push_back({folder + pages.items.at(href), [&, this, &href = href] {
                                 return itemPage(languages_, product, edition, key, href);
                             }});
    }

    SiteFolder& output_;
    SitePaths paths_;
    const SiteLanguages& languages_;
    std::vector<std::vector<SectionSummary>> summaries_; // by language
    PageDirectory directory_;
    SiteFindings findings_;
};

} // namespace

void addFiles(SiteFolder& output, Findings findings, Progress& progress,
              std::vector<std::string>& complaints) {
    SiteBuild build(output);
    build.addProducts(findings, progress, complaints);
    build.addSearchIndexes(progress);
    build.addSharedFiles();
}

} // namespace refdoc::site
