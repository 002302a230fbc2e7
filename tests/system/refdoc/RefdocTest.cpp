#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/json/parse.hpp>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace refdoc_tests {

RefdocTest::RefdocTest() {
    std::string pattern = (std::filesystem::temp_directory_path() / "refdoc-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::system_error(errno, std::generic_category(), pattern);
    folder_ = pattern;
}

RefdocTest::~RefdocTest() {
    std::error_code ignored; // what is left behind is no failure of the test
    std::filesystem::remove_all(folder_, ignored);
}

void RefdocTest::add(const std::string& path, std::string_view text) const {
    const std::filesystem::path file = folder_ / path;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    if (!stream.flush())
        throw std::runtime_error("can't write " + file.string());
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
    return below.empty() ? folder_.string() : (folder_ / below).string();
}

Outcome RefdocTest::run(std::vector<std::string> arguments,
                        const Surroundings& surroundings) const {
    return runProgram(withInstall(std::move(arguments)), surroundings);
}

Outcome RefdocTest::runAtTerminal(std::size_t columns, std::vector<std::string> arguments,
                                  const Surroundings& surroundings) const {
    return runOnTerminal(columns, withInstall(std::move(arguments)), surroundings);
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

boost::json::value document(const std::string& text) {
    boost::json::error_code error;
    boost::json::value value = boost::json::parse(text, error);
    EXPECT_FALSE(error) << error.message() << " in: " << text;
    return value;
}

} // namespace refdoc_tests
