#include "platform/InstallationManifest.hpp"

#include "platform/LineCounter.hpp"
#include "platform/ReadLimits.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/path/Path.hpp"
#include "platform/path/RegularFile.hpp"
#include "platform/system/NonStopArithmetic.hpp"

#include <boost/json/parser.hpp>
#include <boost/json/value.hpp>

#include <filesystem>
#include <new>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>

namespace platform {

namespace json = boost::json;
using docproduct::ProductFamily;
using docproduct::TopLevelDocProduct;

namespace {

// A place in the manifest, as a JSON pointer, with the value that stands there.
struct Place {
    const json::value& value;
    std::string pointer;

    [[noreturn]] void fail(std::string_view reason) const {
        const std::string where = pointer.empty() ? "the top level" : pointer;
        throw std::runtime_error(where + ": " + std::string(reason));
    }

    const json::object& asObject() const {
        if (!value.is_object())
            fail("an object was expected");
        return value.get_object();
    }

    std::string asString() const {
        if (!value.is_string())
            fail("a string was expected");
        return {value.get_string().begin(), value.get_string().end()};
    }

    std::u16string asText() const { return fl::i18n::to_ustring(asString()); }

    // Calls read(place) for each element.
    template <class Read>
    void forEach(Read read) const {
        if (!value.is_array())
            fail("an array was expected");
        std::size_t index = 0;
        for (const json::value& element : value.get_array())
            read(Place{element, pointer + '/' + std::to_string(index++)});
    }

    // Calls read(place) for the value under an optional key.
    template <class Read>
    void ifPresent(std::string_view key, Read read) const {
        if (const json::value* found = asObject().if_contains(key))
            read(Place{*found, pointer + '/' + std::string(key)});
    }

    std::string optionalString(std::string_view key) const {
        std::string text;
        ifPresent(key, [&](const Place& place) { text = place.asString(); });
        return text;
    }

    std::string requiredString(std::string_view key) const {
        if (!asObject().contains(key))
            fail("the key \"" + std::string(key) + "\" is missing");
        return optionalString(key);
    }
};

std::shared_ptr<const TopLevelDocProduct> readProduct(const Place& product) {
    std::string displayName = product.optionalString("displayName");
    std::string helpLocation = product.optionalString("helpLocation");
    std::string shortName = product.requiredString("shortName");
    std::string baseCode = product.optionalString("baseCode");
    std::string altShortName = product.optionalString("altShortName");
    std::string availability = product.optionalString("availability");
    std::vector<ProductFamily> families;
    product.ifPresent("families", [&](const Place& list) {
        list.forEach([&](const Place& family) { families.emplace_back(family.asString()); });
    });
    return std::make_shared<const TopLevelDocProduct>(
        std::move(displayName), std::move(helpLocation), std::move(shortName), std::move(baseCode),
        std::move(altShortName), std::move(availability), std::move(families));
}

std::vector<std::shared_ptr<const TopLevelDocProduct>> readProducts(const Place& list) {
    std::vector<std::shared_ptr<const TopLevelDocProduct>> products;
    list.forEach([&](const Place& product) { products.push_back(readProduct(product)); });
    return products;
}

std::vector<std::u16string> readTexts(const Place& list) {
    std::vector<std::u16string> texts;
    list.forEach([&](const Place& text) { texts.push_back(text.asText()); });
    return texts;
}

// A folder of the manifest may be relative to the install folder; the empty text names none.
std::u16string readFolder(const Place& place, const std::u16string& installFolder) {
    const fl::filesystem::path folder(place.asText());
    if (folder.empty())
        return {};
    try {
        if (std::filesystem::path(fl::filesystem::make_native_access_form_with_cleanup_i18n(folder))
                .is_absolute())
            return folder.string();
    } catch (const std::system_error& noPath) {
        place.fail(noPath.what());
    }
    return (fl::filesystem::path(installFolder) / folder.string()).string();
}

// Returns "line 3, column 7" for a byte of the text.
std::string describePosition(std::string_view text, std::size_t offset) {
    const LineAndColumn position = LineCounter(text).positionOf(offset);
    return "line " + std::to_string(position.line) + ", column " + std::to_string(position.column);
}

json::value parseText(std::string_view text) {
    json::parser parser;
    json::error_code error;
    const platform::NonStopArithmetic nonStop;
    const std::size_t consumed = parser.write(text.data(), text.size(), error);
    if (error)
        throw std::runtime_error(describePosition(text, consumed) + ": " + error.message());
    return parser.release();
}

std::string readText(const std::filesystem::path& name) {
    const auto file = fl::filesystem::RegularFile::open(name);
    if (!file)
        throw std::runtime_error("it is not a file that can be read");
    const std::uint64_t size = file->size();
    if (size > readLimits().fileBytes)
        throw std::runtime_error("the file is larger than the limit of " +
                                 std::to_string(readLimits().fileBytes) + " bytes");
    std::string text(static_cast<std::size_t>(size), '\0');
    text.resize(file->readAt(0, text.data(), text.size()));
    return text;
}

bool isMissing(const std::filesystem::path& name) {
    std::error_code unknown;
    return std::filesystem::status(name, unknown).type() == std::filesystem::file_type::not_found;
}

} // namespace

struct InstallationManifest::Content {
    std::u16string docLanguage = u"en";
    std::vector<std::u16string> supportedDocLanguages{u"en"};
    std::vector<std::shared_ptr<const TopLevelDocProduct>> topLevelProducts;
    std::u16string supportPackageRoot;
    std::unordered_set<std::u16string> hardwareSupportPackages;

    // What the manifest of an install folder says, or what holds without one.
    static std::shared_ptr<const Content> read(const std::u16string& installFolder);

private:
    void take(const Place& manifest, const std::u16string& installFolder);
};

void InstallationManifest::Content::take(const Place& manifest,
                                         const std::u16string& installFolder) {
    manifest.ifPresent("docLanguage",
                       [&](const Place& language) { docLanguage = language.asText(); });
    manifest.ifPresent("supportedDocLanguages",
                       [&](const Place& list) { supportedDocLanguages = readTexts(list); });
    manifest.ifPresent("topLevelProducts",
                       [&](const Place& list) { topLevelProducts = readProducts(list); });
    manifest.ifPresent("supportPackageRoot", [&](const Place& folder) {
        supportPackageRoot = readFolder(folder, installFolder);
    });
    manifest.ifPresent("hardwareSupportPackages", [&](const Place& list) {
        for (std::u16string& name : readTexts(list))
            hardwareSupportPackages.insert(std::move(name));
    });
}

std::shared_ptr<const InstallationManifest::Content>
InstallationManifest::Content::read(const std::u16string& installFolder) {
    auto content = std::make_shared<Content>();
    const fl::filesystem::path name = fl::filesystem::path(installFolder) / u"installation.json";
    try {
        const std::filesystem::path file =
            fl::filesystem::make_native_access_form_with_cleanup_i18n(name);
        if (isMissing(file))
            return content;
        const json::value root = parseText(readText(file));
        content->take(Place{root, ""}, installFolder);
    } catch (const std::bad_alloc&) {
        throw; // no fault of the file
    } catch (const std::exception& failure) {
        throw std::runtime_error(fl::i18n::to_string(name.string()) + ": " + failure.what());
    }
    return content;
}

InstallationManifest::InstallationManifest(std::u16string installFolder)
    : installFolder_(std::move(installFolder)) {}

InstallationManifest::~InstallationManifest() = default;

std::shared_ptr<const InstallationManifest::Content> InstallationManifest::content() const {
    const std::lock_guard lock(mutex_);
    if (!content_)
        content_ = Content::read(installFolder_);
    return content_;
}

std::u16string InstallationManifest::installPath() const {
    return installFolder_;
}

std::u16string InstallationManifest::docLanguage() const {
    return content()->docLanguage;
}

std::vector<std::u16string> InstallationManifest::supportedDocLanguages() const {
    return content()->supportedDocLanguages;
}

std::vector<std::shared_ptr<const TopLevelDocProduct>>
InstallationManifest::installedTopLevelDocProducts() const {
    return content()->topLevelProducts;
}

std::u16string InstallationManifest::supportPackageRoot() const {
    return content()->supportPackageRoot;
}

std::unordered_set<std::u16string>
InstallationManifest::installedHardwareSupportPackages(const std::u16string&) const {
    return content()->hardwareSupportPackages;
}

} // namespace platform
