#include "tests/schema/Agreement.hpp"

#include <boost/json/serialize.hpp>
#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

namespace docparser_tests {

void writeAnew(const TemporaryFolder& folder, const std::string& name, const std::string& text) {
    std::filesystem::remove(folder.path() / name);
    folder.write(name, text);
}

Agreement::Agreement(const std::string& schema, std::function<bool(const std::string& text)> isRead)
    : schema_(schema), isRead_(std::move(isRead)) {}

void Agreement::check(const boost::json::value& document, const std::string& change) {
    const std::string text = boost::json::serialize(document);
    const bool isRead = isRead_(text);
    EXPECT_EQ(schema_.accepts(document), isRead) << change << "\n"
                                                 << schema_.problemsOf(document) << text;
    ++(isRead ? accepted_ : refused_);
}

void Agreement::expectBothVerdicts(std::size_t atLeast) const {
    EXPECT_GE(accepted_, atLeast);
    EXPECT_GE(refused_, atLeast);
}

} // namespace docparser_tests
