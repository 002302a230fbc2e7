#include "tools/refdoc/pages/FindingList.hpp"
#include "tools/refdoc/pages/Frames.hpp"
#include "tools/refdoc/pages/SitePages.hpp"

namespace refdoc::site {

using html::HtmlWriter;

std::string brokenPage(const SiteLanguages& languages, const Product& product,
                       const Edition& edition, const std::u16string& section) {
    const std::u16string& title = product.pages.at(section).displayName;
    return html::framedPage(productFrame(languages, product, edition, section, std::nullopt, title),
                            [&](HtmlWriter& writer) {
                                writer.element("h1", {}, [&] { writer.element("bdi", {}, title); });
                                writeBrokenFiles(writer, edition.content->brokenFiles);
                                writeFindingsPanel(writer,
                                                   findingsBeside(edition, product.findings));
                            });
}

} // namespace refdoc::site
