#pragma once

#include "tools/refdoc/html/PageFrame.hpp"
#include "tools/refdoc/pages/SiteModel.hpp"

#include <optional>
#include <string>

namespace refdoc::site {

// The frames of the pages: their titles, the way to them and their languages.

html::PageFrame startFrame(const SiteLanguages& languages, const SiteLanguage& language);

/// \param href  absent for the page of the section itself
html::PageFrame productFrame(const SiteLanguages& languages, const Product& product,
                             const Edition& edition, const std::u16string& section,
                             const std::optional<std::u16string>& href, std::u16string title);

} // namespace refdoc::site
