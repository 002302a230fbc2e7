#pragma once

#include "docparser/c/docparser.h"
#include "tests/support/TemporaryFolder.hpp"

#include <boost/json/value.hpp>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace docparser_tests {

/// What a function of the C interface returned.
struct CAnswer {
    docparser_status status = DOCPARSER_FAILED;
    std::optional<boost::json::value> result{};  ///< absent if the pointer is null
    std::optional<boost::json::value> account{}; ///< absent if the pointer is null
};

/// Calls docparser_get_product(), and frees the strings that it returns. The pointers are not null
/// before the call.
CAnswer productOf(const char* product);

/// Calls docparser_get_index() in the same way.
CAnswer index();

/// Selects a temporary install folder, which is initially empty. The destructor restores the
/// settings of the process.
class CInterfaceTest : public testing::Test {
protected:
    CInterfaceTest();
    ~CInterfaceTest() override;

    /// Returns the path of the install folder, or of something below it, in UTF-8.
    std::string path(const std::string& below = {}) const;

    /// Writes a resource file with one item, "a.html", whose purpose is the path of the file.
    /// \param file  the path below the install folder
    void addProduct(const std::string& file) const;

    /// Writes `installation.json`, which is read by the next docparser_set_install_folder().
    void addManifest(std::string_view text) const;

    /// Returns the purpose of the item "a.html" of a product; the last error if there is none.
    static std::string purposeOf(const char* product);

    TemporaryFolder folder;
};

} // namespace docparser_tests
