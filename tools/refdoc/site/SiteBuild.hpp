#pragma once

#include "tools/refdoc/site/SiteFolder.hpp"
#include "tools/refdoc/terminal/Progress.hpp"

#include <string>
#include <vector>

namespace refdoc::site {

/// Whether the pages show the findings of `check`.
enum class Findings { Shown, Hidden };

/// Adds the files of the site that shows what the library finds with the current settings, in all
/// languages. Each thread has the full records of one product in memory at a time.
/// \param complaints  receives a complaint for each product that cannot be read
/// \throws std::runtime_error  there is no product, or a file changed while it was read
/// \throws std::filesystem::filesystem_error  a file cannot be written
void addFiles(SiteFolder& output, Findings findings, Progress& progress,
              std::vector<std::string>& complaints);

} // namespace refdoc::site
