#include "platform/InstallationManifest.hpp"

#include "platform/i18n/Converter.hpp"
#include "platform/path/FileStream.hpp"
#include "platform/path/Path.hpp"

#include <boost/json/parser.hpp>
#include <boost/json/value.hpp>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace platform {

namespace json = boost::json;
using docproduct::ProductFamily;
using docproduct::TopLevelDocProduct;

struct InstallationManifest::Content {
    std::u16string docLanguage = u"en";
    std::vector<std::u16string> supportedDocLanguages{u"en"};
    std::vector<std::shared_ptr<const TopLevelDocProduct>> topLevelProducts;
    std::u16string supportPackageRoot;
    std::unordered_set<std::u16string> hardwareSupportPackages;
};

namespace {

// A place in the manifest, as a JSON pointer, with the value that stands there.
struct Place {
    const json::value& value;
    std::string pointer;

    [[noreturn]] void fail(std::string_view reason) const {
        throw std::runtime_error((pointer.empty() ? "/" : pointer) + ": " + std::string(reason));
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
};

std::shared_ptr<const TopLevelDocProduct> readProduct(const Place& product) {
    std::string displayName = product.optionalString("displayName");
    std::string helpLocation = product.optionalString("helpLocation");
    std::string shortName = product.optionalString("shortName");
    if (!product.asObject().contains("shortName"))
        product.fail("the key \"shortName\" is missing");
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

// "line 3, column 7" of a byte of the text.
std::string describePosition(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const auto line = std::ranges::count(before, '\n') + 1;
    const std::size_t column = offset - (before.rfind('\n') + 1) + 1;
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

json::value parseText(std::string_view text) {
    json::parser parser;
    json::error_code error;
    const std::size_t consumed = parser.write(text.data(), text.size(), error);
    if (error)
        throw std::runtime_error(describePosition(text, consumed) + ": " + error.message());
    return parser.release();
}

std::string readText(const std::filesystem::path& file) {
    fl::filesystem::ifstream stream(file, std::ios::in | std::ios::binary,
                                    fl::filesystem::share_mode::deny_none);
    if (!stream.is_open())
        throw std::runtime_error("the file can't be opened for reading");
    std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    return text;
}

// A support-package root in the manifest may be relative to the install folder.
std::u16string resolveFolder(const std::u16string& installFolder, const std::u16string& folder) {
    const fl::filesystem::path path(folder);
    if (fl::filesystem::make_native_access_form_with_cleanup_i18n(path).is_absolute())
        return folder;
    return (fl::filesystem::path(installFolder) / folder).string();
}

} // namespace

InstallationManifest::InstallationManifest(std::u16string installFolder)
    : installFolder_(std::move(installFolder)) {}

InstallationManifest::~InstallationManifest() = default;

std::shared_ptr<const InstallationManifest::Content> InstallationManifest::content() const {
    const std::lock_guard lock(mutex_);
    if (content_)
        return content_;

    auto content = std::make_shared<Content>();
    const fl::filesystem::path path = fl::filesystem::path(installFolder_) / u"installation.json";
    const std::filesystem::path file =
        fl::filesystem::make_native_access_form_with_cleanup_i18n(path);
    std::error_code unknown;
    if (std::filesystem::status(file, unknown).type() != std::filesystem::file_type::not_found) {
        try {
            const json::value root = parseText(readText(file));
            const Place manifest{root, ""};
            manifest.ifPresent("docLanguage",
                               [&](const Place& place) { content->docLanguage = place.asText(); });
            manifest.ifPresent("supportedDocLanguages", [&](const Place& list) {
                content->supportedDocLanguages.clear();
                list.forEach([&](const Place& language) {
                    content->supportedDocLanguages.push_back(language.asText());
                });
            });
            manifest.ifPresent("topLevelProducts", [&](const Place& list) {
                list.forEach([&](const Place& product) {
                    content->topLevelProducts.push_back(readProduct(product));
                });
            });
            manifest.ifPresent("supportPackageRoot", [&](const Place& place) {
                content->supportPackageRoot = resolveFolder(installFolder_, place.asText());
            });
            manifest.ifPresent("hardwareSupportPackages", [&](const Place& list) {
                list.forEach([&](const Place& name) {
                    content->hardwareSupportPackages.insert(name.asText());
                });
            });
        } catch (const std::exception& failure) {
            throw std::runtime_error(fl::i18n::to_string(path.string()) + ": " + failure.what());
        }
    }
    content_ = std::move(content);
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
