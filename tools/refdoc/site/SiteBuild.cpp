#include "tools/refdoc/site/SiteBuild.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/html/Assets.hpp"
#include "tools/refdoc/pages/FileNames.hpp"
#include "tools/refdoc/pages/SearchIndex.hpp"
#include "tools/refdoc/pages/SitePages.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/Languages.hpp"
#include "tools/refdoc/show/ShowCommand.hpp"
#include "tools/refdoc/site/PageDirectory.hpp"
#include "tools/refdoc/site/ProductReader.hpp"
#include "tools/refdoc/site/SiteFindings.hpp"
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
using reference::property::DeprecationStatus;
using reference::property::RefItem;

namespace {

std::set<std::u16string> hrefsIn(const Product& product, const std::u16string& section) {
    std::set<std::u16string> hrefs;
    for (const Edition& edition : product.editions) {
        const auto resource = edition.resources.find(section);
        if (resource == edition.resources.end())
            continue;
        for (const auto& [href, items] : resource->second.items)
            hrefs.insert(href);
    }
    return hrefs;
}

std::size_t countDeprecated(const DocResource<RefItem>& resource) {
    std::size_t count = 0;
    for (const auto& [href, items] : resource.items)
        count += static_cast<std::size_t>(std::ranges::count_if(items, [](const RefItem& item) {
            return item.getDeprecationStatus() != DeprecationStatus::None;
        }));
    return count;
}

std::size_t countItems(const DocResource<RefItem>& resource) {
    std::size_t count = 0;
    for (const auto& [href, items] : resource.items)
        count += items.size();
    return count;
}

// The key and the display name of a section.
using SectionName = std::pair<std::u16string, std::u16string>;

// Returns the names of the sections of the lookup index in English, by product.
std::map<std::u16string, SectionName> lookupSections() {
    const LanguageGuard english(DocResourceParser::ParsingTools::kEnglishLocale);
    const LookupIndex index = DocResourceParser::getResourceLookupFiles();
    std::map<std::u16string, SectionName> sections;
    for (const auto* part : {&index.installed, &index.notInstalled}) {
        for (const auto& [key, resource] : *part)
            sections.try_emplace(resource.header.getProduct(), key,
                                 resource.header.getProductName());
    }
    return sections;
}

class SiteBuild {
public:
    explicit SiteBuild(SiteFolder& output)
        : output_(output), names_{kIndexName, kAssetFolder, SiteFolder::kListName} {
        FileNames searchNames{};
        for (const std::u16string& language : allLanguages()) {
            // English is the first language, and its pages are not in a folder of their own.
            const bool isEnglish = languages_.empty();
            languages_.push_back(
                {language, isEnglish ? "" : names_.addFolder(language) + '/',
                 fmt::format("{}/search/{}/", kAssetFolder, searchNames.addFolder(language))});
        }
        summaries_.resize(languages_.size());
    }

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
            choosePaths(*name, product);
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

    void choosePaths(const std::u16string& name, Product& product) {
        for (const Edition& edition : product.editions) {
            for (const auto& [key, resource] : edition.resources)
                product.pages.try_emplace(
                    key, SectionPages{.displayName = resource.header.getProductName()});
        }
        // The file that has the key is broken, but lookup files may have it, too.
        if (product.pages.empty() && !product.editions.empty()) {
            const auto [key, displayName] = lookupSectionOf(name);
            product.pages.emplace(key, SectionPages{.displayName = displayName});
        }
        for (auto& [key, pages] : product.pages) {
            const std::string folder = names_.addFolder(key) + '/';
            pages.index = folder + std::string(kIndexName);
            FileNames names{kIndexName};
            for (const std::u16string& href : hrefsIn(product, key))
                pages.items.emplace(href, folder + names.addPage(href));
        }
    }

    // Returns the product's own name for both if the lookup index does not have it.
    SectionName lookupSectionOf(const std::u16string& product) {
        if (!lookupSections_)
            lookupSections_ = lookupSections();
        const auto section = lookupSections_->find(product);
        return section == lookupSections_->end() ? SectionName(product, product) : section->second;
    }

    void addPages(const Product& product) {
        std::vector<SiteFile> files;
        for (const Edition& edition : product.editions) {
            const auto language =
                std::ranges::find(languages_, edition.language, &SiteLanguage::code);
            std::vector<SectionSummary>& summaries =
                summaries_[static_cast<std::size_t>(language - languages_.begin())];
            for (const auto& [key, resource] : edition.resources) {
                addSection(product, edition, key, language->folder, files);
                summaries.push_back(summaryOf(product, key, resource));
            }
            if (!edition.isBroken())
                continue;
            for (const auto& [key, pages] : product.pages) {
                files.push_back({language->folder + pages.index, [&, &key = key] {
                                     return brokenPage(languages_, product, edition, key);
                                 }});
                summaries.push_back({.displayName = pages.displayName,
                                     .isInstalled = DocResourceParser::isProductInstalled(key),
                                     .isBroken = true,
                                     .index = pages.index,
                                     .findings = summarize(product.findings.all(), 0, 0)});
            }
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

    static SectionSummary summaryOf(const Product& product, const std::u16string& key,
                                    const DocResource<RefItem>& resource) {
        SectionSummary summary{.displayName = resource.header.getProductName(),
                               .isInstalled = DocResourceParser::isProductInstalled(key),
                               .itemCount = countItems(resource),
                               .deprecatedCount = countDeprecated(resource),
                               .index = product.pages.at(key).index,
                               .findings = summarize(product.findings.all(), 0, 0)};
        for (const Edition& edition : product.editions) {
            if (hasOwnSection(edition, key))
                summary.languages.push_back(edition.language);
        }
        return summary;
    }

    SiteFolder& output_;
    FileNames names_; // of the folder of the site
    SiteLanguages languages_;
    std::vector<std::vector<SectionSummary>> summaries_; // by language
    PageDirectory directory_;
    SiteFindings findings_;
    std::optional<std::map<std::u16string, SectionName>> lookupSections_; // when it is needed
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
