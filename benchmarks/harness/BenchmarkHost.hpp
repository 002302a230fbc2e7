#pragma once

#include <string>
#include <vector>

namespace reference::docparser::benchmarks {

/// Makes a host in force that shows documentation in `language`, supports en, de, ja and ru, and
/// has no support packages; the products named count as installed.
void setBenchmarkHost(const std::u16string& language, const std::vector<std::u16string>& installed);

} // namespace reference::docparser::benchmarks
