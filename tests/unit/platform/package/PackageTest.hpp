#pragma once

#include "platform/package/FileSystemManager.hpp"
#include "platform/package/PackageError.hpp"
#include "tests/support/TemporaryFolder.hpp"
#include "tests/support/ZipBytes.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace docparser_tests {

/// The name and content of an entry.
using NamedText = std::pair<std::u16string, std::string>;

/// The rest of a stream.
std::string readWhole(opc::InputStream& stream);

/// An open package and the objects that a caller constructs for it, in the usual order.
struct OpenPackage {
    explicit OpenPackage(const std::u16string& path);

    std::vector<opc::qorservices::FileSystemEntry> leaves() const;
    std::vector<std::u16string> leafNames() const;
    std::string read(const opc::qorservices::FileSystemEntry& entry);
    /// The content of the leaf at a position.
    std::string read(std::size_t position) { return read(leaves().at(position)); }
    /// All leaves with their content, in the order of the package.
    std::vector<NamedText> contents();

    opc::FileSystemOpsSelector selector;
    opc::zippackage::ZipPhysicalPackage physical;
    opc::model::Package package;
    opc::qorservices::FileSystemManager manager;
};

/// Gives each test a temporary folder.
class PackageTest : public testing::Test {
protected:
    /// Writes a file and returns its path.
    std::u16string write(std::string_view name, std::string_view bytes) const;
    std::u16string write(std::string_view bytes) const { return write("package.zip", bytes); }
    std::u16string path(std::string_view name) const;

    OpenPackage open(const ZipBytes& zip) const { return OpenPackage(write(zip.build())); }
    OpenPackage open(std::string_view bytes) const { return OpenPackage(write(bytes)); }

    const TemporaryFolder temporaryFolder;
    const std::filesystem::path& folder = temporaryFolder.path();
};

/// Returns the message of the `Error` that the call throws. Fails the test if it throws none.
template <class Error = opc::PackageError, class Call>
std::string messageOf(Call&& call) {
    try {
        std::forward<Call>(call)();
    } catch (const Error& error) {
        return error.what();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}

/// A compressible string without long repetitions.
std::string sampleText(std::size_t length);

} // namespace docparser_tests
