#pragma once

#include <string>
#include <vector>

namespace reference::docparser::benchmarks {

/// Sets a host without support packages.
/// \param language   the documentation language
/// \param supported  the languages that the host supports
/// \param installed  the names of the installed products
void setHost(const std::u16string& language, const std::vector<std::u16string>& supported,
             const std::vector<std::u16string>& installed);

} // namespace reference::docparser::benchmarks
