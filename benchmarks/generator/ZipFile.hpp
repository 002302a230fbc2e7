#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace reference::docparser::benchmarks {

struct ZipEntry {
    std::string name;
    std::string text;
};

/// Writes a zip file of deflated entries, the same bytes in every run.
/// \throws std::runtime_error  the file cannot be written
void writeZip(const std::filesystem::path& path, const std::vector<ZipEntry>& entries);

} // namespace reference::docparser::benchmarks
