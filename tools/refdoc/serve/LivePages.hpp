#pragma once

#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/http/HttpServer.hpp"
#include "tools/refdoc/pages/SiteModel.hpp"
#include "tools/refdoc/serve/RecentProducts.hpp"
#include "tools/refdoc/site/PageDirectory.hpp"
#include "tools/refdoc/site/SiteFindings.hpp"
#include "tools/refdoc/site/SitePaths.hpp"
#include "tools/refdoc/terminal/Progress.hpp"

#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace refdoc::serve {

/// The path of the event stream that the pages listen to.
inline constexpr std::string_view kEventPath = "/refdoc-site/events";

/// The pages of a site, made from the current files when they are asked for. Thread-safe.
///
/// Of most products, only what the start pages and the search need is in memory: what they are
/// called and the paths of their pages. The records of the products that were used last are kept
/// until their files change.
class LivePages {
public:
    /// Reads each product once, and checks all files.
    /// \param options   those that have been applied to the library; must outlive the object
    /// \param versions  advanced with each change of the pages, which have the version that they
    ///                  show; must outlive the object
    /// \throws whatever the host services throw
    LivePages(const Options& options, http::Versions& versions, Progress& progress);

    /// Returns whether any product has a file, even a broken one.
    bool hasProducts() const;

    /// Returns a file of the site. If it does not exist, or if the file of its product is broken,
    /// the response is a page that says so. Each page has a script that loads it again when there
    /// is another version.
    /// \param path  as in a URL, decoded: "/de/orchard/index.html". A folder is its "index.html".
    http::Response find(const std::string& path);

    /// Reads the products again whose files have changed. If the installation manifest has changed,
    /// applies the options and reads everything again; a malformed manifest is ignored.
    /// \param files  that were added, changed or removed
    /// \throws whatever the host services throw
    void update(const std::set<std::filesystem::path>& files);

    /// Checks all files. Until that is done, pages show the findings of before. This takes much
    /// longer than update() if there are many products, but other calls need not wait for it.
    /// Findings about files that change meanwhile may be those of before or after the change.
    /// \throws std::exception  the check could not be completed
    void check();

private:
    // By the code of the language.
    using Summaries = std::map<std::u16string, std::vector<site::SectionSummary>>;

    // What is known of all products. Another set of languages needs a new one.
    struct Catalog {
        site::SitePaths paths{};
        std::map<std::u16string, Summaries> products{};  // by name
        std::map<std::string, std::u16string> folders{}; // the product of each: "orchard"
        site::PageDirectory directory{};
    };

    struct SearchFiles {
        std::u16string language;
        std::map<std::string, std::string> files{}; // content by name
    };

    void readAll(Progress& progress);
    site::SiteLanguages languages() const;
    void show(site::SiteFindings findings);
    void readManifest();
    std::shared_ptr<const site::Product> read(const std::u16string& name);
    void tryToRead(const std::u16string& name);
    std::shared_ptr<const site::Product> productNamed(const std::u16string& name);
    void forget(const std::u16string& name);

    std::optional<http::Response> fileAt(const std::string& path);
    std::optional<std::string> sharedFile(const std::string& path);
    std::optional<std::string> searchFile(const site::SiteLanguage& language,
                                          const std::string& name);
    std::optional<std::string> productPage(const site::SiteLanguage& language,
                                           const std::string& path);
    std::string startPageIn(const site::SiteLanguage& language) const;

    const Options& options_;
    http::Versions& versions_;
    // Guards the members below, and the settings of the library except in check().
    mutable std::mutex mutex_;
    std::unique_ptr<Catalog> catalog_;
    site::SiteFindings findings_;
    RecentProducts recent_;
    std::optional<SearchFiles> search_; // of the language that was searched last
};

} // namespace refdoc::serve
