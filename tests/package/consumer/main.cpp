// Uses the installed library as an application does: with its own host services, a reference root
// on disk, a record and a missing product. The argument, if any, is the expected install folder of
// the default host services. Prints the first failure and exits with 1.

#include <docparser/DocParserException.hpp>
#include <docparser/DocResourceParser.hpp>
#include <platform/HostServices.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace {

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;

void expect(bool holds, std::string_view expectation) {
    if (!holds)
        throw std::runtime_error("not so: " + std::string(expectation));
}

// A German application that is installed in one folder.
class GermanHost final : public platform::HostServices {
public:
    explicit GermanHost(std::u16string folder) : folder_(std::move(folder)) {}

    std::u16string installPath() const override { return folder_; }
    std::u16string docLanguage() const override { return u"de"; }
    std::vector<std::u16string> supportedDocLanguages() const override { return {u"en", u"de"}; }
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override {
        return {std::make_shared<const docproduct::TopLevelDocProduct>(
            "", "", "orchard", "", "", "", std::vector<docproduct::ProductFamily>())};
    }
    std::u16string supportPackageRoot() const override { return folder_; }
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& /*root*/) const override {
        return {u"sensorkit"};
    }

private:
    std::u16string folder_;
};

// Creates a folder in the temporary directory; the destructor removes it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "docparser-XXXXXX").string();
        expect(::mkdtemp(name.data()) != nullptr, "a temporary folder can be made");
        path_ = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

void writeResourceFile(const std::filesystem::path& file, std::string_view purpose) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << R"({"productName": "Orchard Toolkit", "baseCode": "OT",)"
                        << R"("helpFolder": "orchard", "helpLocation": "orchard",)"
                        << R"("refItems": [{"href": "graft.html", "refpurpose": ")" << purpose
                        << R"("}]})";
}

void readsTheRecordInTheLanguageOfTheHost() {
    const auto resources = DocResourceParser::getResourceFile(u"Orchard");
    const auto& items = resources.at(u"orchard").items.at(u"graft.html");
    expect(items.size() == 1, "the product has one item of this href");
    expect(items.front().getRefPurpose() == u"Bäume veredeln", "the purpose is in German");
}

void asksTheHostWhatIsInstalled() {
    expect(DocResourceParser::isProductInstalled(u"orchard"), "the product is installed");
    expect(DocResourceParser::isProductInstalled(u"sensorkit"), "the package is installed");
    expect(!DocResourceParser::isProductInstalled(u"cellar"), "another product is not");
}

void throwsItsExceptionThroughTheLibraryBoundary() {
    try {
        DocResourceParser::getResourceFile(u"Cellar");
    } catch (const DocParserException& missing) {
        expect(missing.getProductName() == u"Cellar", "the exception names the product");
        return;
    }
    expect(false, "a product without resources is an exception");
}

} // namespace

int main(int argc, char* argv[]) {
    try {
        if (argc > 1)
            expect(platform::hostServices()->installPath() ==
                       std::filesystem::path(argv[1]).u16string(),
                   "the default services report the folder of the installation");
        const TemporaryFolder installation;
        const auto folder = installation.path() / "help/docCatalog/referenceapi";
        writeResourceFile(folder / "Orchard.json", "Join two trees");
        writeResourceFile(folder / "Orchard_de.json", "Bäume veredeln");

        platform::setHostServices(std::make_shared<GermanHost>(installation.path().u16string()));
        DocResourceParser::setReferenceRoot((installation.path() / "help").u16string());
        readsTheRecordInTheLanguageOfTheHost();
        asksTheHostWhatIsInstalled();
        throwsItsExceptionThroughTheLibraryBoundary();
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::cerr << "consumer: " << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
