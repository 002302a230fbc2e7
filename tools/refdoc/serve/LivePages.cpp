#include "tools/refdoc/serve/LivePages.hpp"

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/check/report/Report.hpp"
#include "tools/refdoc/html/Assets.hpp"
#include "tools/refdoc/html/PageFrame.hpp"
#include "tools/refdoc/index/SearchIndex.hpp"
#include "tools/refdoc/pages/SitePages.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/site/ProductReader.hpp"
#include "tools/refdoc/site/SectionSummaries.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <mutex>
#include <utility>

namespace refdoc::serve {

using namespace site;
using http::Response;
using reference::docparser::DocResourceParser;
using reference::docparser::IndexEntry;
using reference::docparser::LoadAccount;

namespace {

// A page links mostly to others of its own product.
constexpr std::size_t kMostProducts = 8;

constexpr std::string_view kManifest = "installation.json";
constexpr std::string_view kHtml = "text/html; charset=utf-8";

std::string typeOf(std::string_view path) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 3> kTypes{
        {{".css", "text/css; charset=utf-8"},
         {".js", "text/javascript; charset=utf-8"},
         {".svg", "image/svg+xml"}}};
    const auto type = std::ranges::find_if(
        kTypes, [&](const auto& candidate) { return path.ends_with(candidate.first); });
    return std::string(type == kTypes.end() ? kHtml : type->second);
}

// All text in a page is escaped, so the first end of a head is that of the page.
void addLiveScript(std::int64_t version, std::string& page) {
    page.insert(page.find("</head>"),
                fmt::format(R"(<script src="/{}/{}" data-events="{}?since={}" defer></script>)",
                            kAssetFolder, html::liveScript().name, kEventPath, version));
}

// The page can be at any path, so its URLs are absolute.
std::string messagePage(const SiteLanguage& language, std::u16string title, std::string_view text) {
    const html::PageFrame frame{
        .title = title,
        .language = "en",
        .assets = fmt::format("/{}/", kAssetFolder),
        .search = {.index = '/' + language.search, .pages = '/' + language.folder},
        .crumbs = {{u"Reference documentation", '/' + language.folder}}};
    return html::framedPage(frame, [&](html::HtmlWriter& writer) {
        writer.element("h1", {}, title);
        writer.element("p", {}, text);
    });
}

const SiteLanguage& languageOf(const SiteLanguages& languages, const std::string& path) {
    const auto language = std::ranges::find_if(languages, [&](const SiteLanguage& candidate) {
        return !candidate.folder.empty() && path.starts_with(candidate.folder);
    });
    return language == languages.end() ? languages.front() : *language;
}

bool isFileOf(const std::u16string& product, const std::filesystem::path& file) {
    const std::u16string stem = file.stem().u16string();
    return stem == product ||
           stem.starts_with(product + DocResourceParser::ParsingTools::kLocaleSeparator);
}

// Returns the page of a section in an edition with broken files, at the path of another page.
std::string brokenPageAt(const std::string& path, const SiteLanguages& languages, Product product,
                         const Edition& edition, const std::u16string& section) {
    product.pages.at(section).index = path;
    return brokenPage(languages, product, edition, section);
}

// What the pages show of findings.
std::vector<std::string> linesOf(const SiteFindings& findings) {
    std::vector<std::string> lines;
    const auto add = [&](const std::vector<check::ReportedFinding>& found) {
        for (const check::ReportedFinding& finding : found)
            lines.push_back(fmt::format("{}: {}", finding.location.text(), finding.message));
    };
    add(findings.start.others);
    for (const auto& [name, product] : findings.products)
        add(product.all());
    return lines;
}

} // namespace

LivePages::LivePages(const Options& options, http::Versions& versions, Progress& progress)
    : options_(options), versions_(versions), recent_(kMostProducts) {
    readAll(progress);
    show(findFindings(siteProducts(catalog_->paths.languages()), progress));
}

bool LivePages::hasProducts() const {
    const std::lock_guard lock(mutex_);
    return !catalog_->products.empty();
}

Response LivePages::find(const std::string& path) {
    const std::lock_guard lock(mutex_);
    const std::int64_t version = versions_.current();
    const std::string file = path.starts_with('/') ? path.substr(1) : path;
    const SiteLanguage& language = languageOf(catalog_->paths.languages(), file);
    std::optional<Response> response;
    try {
        response = fileAt(file);
    } catch (const std::exception& error) {
        // Usually a file that is being written. Its next version loads the page again.
        response = Response{500, std::string(kHtml),
                            messagePage(language, u"This page cannot be made", error.what())};
    }
    if (!response)
        response = Response{404, std::string(kHtml),
                            messagePage(language, u"Page not found",
                                        "No file of the documentation has this page.")};
    if (response->type == kHtml)
        addLiveScript(version, response->body);
    return *std::move(response);
}

void LivePages::update(const std::set<std::filesystem::path>& files) {
    const std::lock_guard lock(mutex_);
    search_.reset();
    if (std::ranges::any_of(files, [](const auto& file) { return file.filename() == kManifest; }))
        readManifest();
    const std::set<std::u16string> names = siteProducts(catalog_->paths.languages());
    std::set<std::u16string> changed;
    for (const auto& [name, summaries] : catalog_->products) {
        if (!names.contains(name))
            changed.insert(name);
    }
    for (const std::u16string& name : names) {
        if (!catalog_->products.contains(name) ||
            std::ranges::any_of(files, [&](const auto& file) { return isFileOf(name, file); }))
            changed.insert(name);
    }
    for (const std::u16string& name : changed) {
        forget(name);
        if (names.contains(name))
            tryToRead(name);
    }
    versions_.advance();
}

void LivePages::check() {
    Progress progress(/*isShown=*/false);
    SiteFindings findings = findFindings(siteProducts(languages()), progress);
    const std::vector<std::string> lines = linesOf(findings);
    const std::lock_guard lock(mutex_);
    const bool isChanged = lines != linesOf(findings_);
    show(std::move(findings));
    if (isChanged)
        versions_.advance();
}

SiteLanguages LivePages::languages() const {
    const std::lock_guard lock(mutex_);
    return catalog_->paths.languages();
}

void LivePages::readAll(Progress& progress) {
    catalog_ = std::make_unique<Catalog>();
    recent_ = RecentProducts(kMostProducts);
    const std::set<std::u16string> names = siteProducts(catalog_->paths.languages());
    progress.begin("reading", names.size());
    for (const std::u16string& name : names) {
        tryToRead(name);
        progress.step();
    }
}

void LivePages::show(SiteFindings findings) {
    findings_ = std::move(findings);
    recent_ = RecentProducts(kMostProducts);
    for (auto& [name, summaries] : catalog_->products) {
        const check::Summary summary = summarize(findings_.products[name].all(), 0, 0);
        for (auto& [language, sections] : summaries) {
            for (SectionSummary& section : sections)
                section.findings = summary;
        }
    }
}

void LivePages::readManifest() {
    try {
        applyOptions(options_);
    } catch (const std::exception&) {
        return; // The settings of before stay until the manifest can be read.
    }
    Progress progress(/*isShown=*/false);
    readAll(progress);
}

std::shared_ptr<const Product> LivePages::read(const std::u16string& name) {
    LoadAccount failures;
    auto product =
        std::make_shared<Product>(readProduct(name, catalog_->paths.languages(), failures));
    product->findings = findings_.products[name];
    catalog_->paths.choose(name, *product);
    Summaries& summaries = catalog_->products[name];
    summaries.clear();
    for (const Edition& edition : product->editions)
        summaries.emplace(edition.language, summariesOf(*product, edition));
    for (const auto& [key, pages] : product->pages)
        catalog_->folders.insert_or_assign(pages.index.substr(0, pages.index.find('/')), name);
    catalog_->directory.add(name, *product);
    return product;
}

void LivePages::tryToRead(const std::u16string& name) {
    try {
        read(name);
    } catch (const std::exception&) {
        // A file has changed meanwhile, so there will be another update.
    }
}

std::shared_ptr<const Product> LivePages::productNamed(const std::u16string& name) {
    std::shared_ptr<const Product> product = recent_.find(name);
    if (!product) {
        product = read(name);
        recent_.add(name, product);
    }
    return product;
}

void LivePages::forget(const std::u16string& name) {
    recent_.remove(name);
    catalog_->products.erase(name);
    catalog_->directory.add(name, {});
}

std::optional<Response> LivePages::fileAt(const std::string& path) {
    if (path.starts_with(fmt::format("{}/", kAssetFolder))) {
        std::optional<std::string> content = sharedFile(path);
        if (!content)
            return std::nullopt;
        return Response{200, typeOf(path), *std::move(content)};
    }
    const SiteLanguage& language = languageOf(catalog_->paths.languages(), path);
    std::string pagePath = path.substr(language.folder.size());
    if (pagePath.empty() || pagePath.ends_with('/'))
        pagePath += kIndexName;
    std::optional<std::string> content =
        pagePath == kIndexName ? startPageIn(language) : productPage(language, pagePath);
    if (!content)
        return std::nullopt;
    return Response{200, std::string(kHtml), *std::move(content)};
}

std::optional<std::string> LivePages::sharedFile(const std::string& path) {
    const auto isHere = [&](const html::Asset& asset) {
        return path == fmt::format("{}/{}", kAssetFolder, asset.name);
    };
    const auto asset = std::ranges::find_if(html::assets(), isHere);
    if (asset != html::assets().end())
        return std::string(asset->content);
    if (isHere(html::liveScript()))
        return std::string(html::liveScript().content);
    for (const SiteLanguage& language : catalog_->paths.languages()) {
        if (path.starts_with(language.search))
            return searchFile(language, path.substr(language.search.size()));
    }
    return std::nullopt;
}

std::optional<std::string> LivePages::searchFile(const SiteLanguage& language,
                                                 const std::string& name) {
    if (!search_ || search_->language != language.code) {
        SearchFiles search{language.code};
        std::mutex filesMutex;
        const LanguageGuard current(language.code);
        makeSearchIndex(
            DocResourceParser::getResourceLookupFiles(),
            [&](const IndexEntry& entry) {
                return catalog_->directory.pageOf(language.code, entry);
            },
            [&](const std::string& file, std::string_view content) {
                const std::lock_guard lock(filesMutex);
                search.files.emplace(file, content);
            });
        search_ = std::move(search);
    }
    const auto file = search_->files.find(name);
    return file == search_->files.end() ? std::nullopt : std::optional(file->second);
}

std::string LivePages::startPageIn(const SiteLanguage& language) const {
    std::vector<SectionSummary> sections;
    for (const auto& [name, summaries] : catalog_->products) {
        const auto found = summaries.find(language.code);
        if (found != summaries.end())
            std::ranges::copy(found->second, std::back_inserter(sections));
    }
    std::ranges::stable_sort(sections, {}, &SectionSummary::displayName);
    return startPage(catalog_->paths.languages(), language, sections, findings_.start);
}

std::optional<std::string> LivePages::productPage(const SiteLanguage& language,
                                                  const std::string& path) {
    const auto folder = catalog_->folders.find(path.substr(0, path.find('/')));
    if (folder == catalog_->folders.end())
        return std::nullopt;
    const std::shared_ptr<const Product> product = productNamed(folder->second);
    const auto section = std::ranges::find_if(product->pages, [&](const auto& pages) {
        return pages.second.index == fmt::format("{}/{}", folder->first, kIndexName);
    });
    const auto edition = std::ranges::find(product->editions, language.code, &Edition::language);
    if (section == product->pages.end() || edition == product->editions.end())
        return std::nullopt;
    const auto& [key, pages] = *section;
    const SiteLanguages& languages = catalog_->paths.languages();
    const auto resource = edition->content->resources.find(key);
    const bool hasSection = resource != edition->content->resources.end();
    if (hasSection && path == pages.index)
        return sectionPage(languages, *product, *edition, key);
    const auto item =
        std::ranges::find(pages.items, path, &decltype(pages.items)::value_type::second);
    if (hasSection && item != pages.items.end() && resource->second.items.contains(item->first))
        return itemPage(languages, *product, *edition, key, item->first,
                        [this](const std::u16string& code, const std::u16string& location) {
                            return catalog_->directory.pageAt(code, location);
                        });
    if (!edition->content->brokenFiles.empty())
        return brokenPageAt(path, languages, *product, *edition, key);
    return std::nullopt;
}

} // namespace refdoc::serve
