#pragma once

#include "platform/package/FileSystemManager.hpp"
#include "platform/package/PackageError.hpp"
#include "platform/package/StreamHelper.hpp"
#include "tests/support/TemporaryFolder.hpp"
#include "tests/support/ZipBytes.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace docparser_tests {

/// A name and a content.
using NamedText = std::pair<std::u16string, std::string>;

/// A package opened in the order of a caller that walks through packages.
struct OpenPackage {
    explicit OpenPackage(const std::u16string& path);

    std::vector<opc::qorservices::FileSystemEntry> leaves() const;
    std::vector<std::u16string> leafNames() const;
    std::string read(const opc::qorservices::FileSystemEntry& entry);
    /// The content of the leaf at a place.
    std::string read(std::size_t place) { return read(leaves().at(place)); }
    /// Every leaf with its content, in the package's order.
    std::vector<NamedText> contents();

    opc::FileSystemOpsSelector selector;
    opc::zippackage::ZipPhysicalPackage physical;
    opc::model::Package package;
    opc::qorservices::FileSystemManager manager;
};

/// A folder of the test's own, removed with all that is in it.
class PackageTest : public testing::Test {
protected:
    /// Writes a file and gives its path.
    std::u16string write(std::string_view name, std::string_view bytes) const;
    std::u16string write(std::string_view bytes) const { return write("package.zip", bytes); }
    std::u16string path(std::string_view name) const;

    OpenPackage open(const ZipBytes& zip) const { return OpenPackage(write(zip.build())); }
    OpenPackage open(std::string_view bytes) const { return OpenPackage(write(bytes)); }

    const TemporaryFolder temporaryFolder;
    const std::filesystem::path& folder = temporaryFolder.path();
};

/// What the PackageError says that the call throws; a failure of the test if it throws none.
template <class Call>
std::string messageOf(Call&& call) {
    try {
        std::forward<Call>(call)();
    } catch (const opc::PackageError& error) {
        return error.what();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}

/// A text that compresses, and in which no two places look alike for long.
std::string sampleText(std::size_t length);

} // namespace docparser_tests
