#include "tests/system/refdoc/RefdocTest.hpp"

#include "tests/support/NativeText.hpp"

#include <boost/json/parse.hpp>

#include <sstream>

namespace refdoc_tests {

void RefdocTest::add(const std::string& path, std::string_view text) const {
    folder_.write(docparser_tests::pathOf(path), text);
}

void RefdocTest::addResource(const std::string& name, std::string_view text) const {
    add("help/docCatalog/referenceapi/" + name + ".json", text);
}

void RefdocTest::addLookup(const std::string& name, std::string_view text) const {
    add("help/docCatalog/referenceapi_lookup/" + name + ".json", text);
}

void RefdocTest::addManifest(std::string_view text) const {
    add("installation.json", text);
}

std::string RefdocTest::path(const std::string& below) const {
    std::filesystem::path path =
        below.empty() ? folder_.path() : folder_.path() / docparser_tests::pathOf(below);
    return docparser_tests::textOf(path.make_preferred());
}

Outcome RefdocTest::run(std::vector<std::string> arguments,
                        const Surroundings& surroundings) const {
    return runProgram(withInstall(std::move(arguments)), surroundings);
}

std::vector<std::string> RefdocTest::withInstall(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"--install", path()});
    return arguments;
}

std::string section(const std::string& helpFolder, const std::string& items,
                    const std::string& more) {
    return R"({"productName": ")" + helpFolder + R"( name", "baseCode": ")" + helpFolder +
           R"( code", "helpFolder": ")" + helpFolder + R"(", "helpLocation": ")" + helpFolder +
           R"(/help", "refItems": [)" + items + "]" + more + "}";
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

boost::json::value document(const std::string& text) {
    boost::json::error_code error;
    boost::json::value value = boost::json::parse(text, error);
    EXPECT_FALSE(error) << error.message() << " in: " << text;
    return value;
}

std::vector<boost::json::value> documents(const std::string& lines) {
    std::vector<boost::json::value> values;
    for (const std::string& line : linesOf(lines))
        values.push_back(document(line));
    return values;
}

} // namespace refdoc_tests
