#include "platform/InstallationManifest.hpp"

#include "platform/LineCounter.hpp"
#include "platform/ReadLimits.hpp"
#include "platform/system/NativePath.hpp"
#include "platform/system/NonStopArithmetic.hpp"
#include "platform/system/RegularFile.hpp"
#include "platform/unicode/Transcoding.hpp"

#include <boost/json/parser.hpp>
#include <boost/json/value.hpp>

#include <filesystem>
#include <new>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <utility>

namespace platform {

namespace json = boost::json;
using docproduct::ProductFamily;
using docproduct::TopLevelDocProduct;

namespace {

// A value of the manifest with the JSON pointer to it.
struct Node {
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

    std::u16string asUtf16() const { return toUtf16(asString()); }

    // Calls read(node) for each element of an array.
    template <class Read>
    void forEach(Read read) const {
        if (!value.is_array())
            fail("an array was expected");
        std::size_t index = 0;
        for (const json::value& element : value.get_array())
            read(Node{element, pointer + '/' + std::to_string(index++)});
    }

    // Calls read(node) for the value of an optional key.
    template <class Read>
    void ifPresent(std::string_view key, Read read) const {
        if (const json::value* found = asObject().if_contains(key))
            read(Node{*found, pointer + '/' + std::string(key)});
    }

    std::string optionalString(std::string_view key) const {
        std::string string;
        ifPresent(key, [&](const Node& node) { string = node.asString(); });
        return string;
    }

    std::string requiredString(std::string_view key) const {
        if (!asObject().contains(key))
            fail("the key \"" + std::string(key) + "\" is missing");
        return optionalString(key);
    }
};

// If the families of an application's own catalogue need more than a name, the manifest provides
// none.
template <class Family>
void appendFamily(std::vector<Family>& families, std::string name) {
    if constexpr (std::is_constructible_v<Family, std::string>)
        families.emplace_back(std::move(name));
}

std::shared_ptr<const TopLevelDocProduct> readProduct(const Node& product) {
    std::string displayName = product.optionalString("displayName");
    std::string helpLocation = product.optionalString("helpLocation");
    std::string shortName = product.requiredString("shortName");
    std::string baseCode = product.optionalString("baseCode");
    std::string altShortName = product.optionalString("altShortName");
    std::string availability = product.optionalString("availability");
    std::vector<ProductFamily> families;
    product.ifPresent("families", [&](const Node& list) {
        list.forEach([&](const Node& family) { appendFamily(families, family.asString()); });
    });
    return std::make_shared<const TopLevelDocProduct>(
        std::move(displayName), std::move(helpLocation), std::move(shortName), std::move(baseCode),
        std::move(altShortName), std::move(availability), std::move(families));
}

std::vector<std::shared_ptr<const TopLevelDocProduct>> readProducts(const Node& list) {
    std::vector<std::shared_ptr<const TopLevelDocProduct>> products;
    list.forEach([&](const Node& product) { products.push_back(readProduct(product)); });
    return products;
}

std::vector<std::u16string> readStrings(const Node& list) {
    std::vector<std::u16string> strings;
    list.forEach([&](const Node& string) { strings.push_back(string.asUtf16()); });
    return strings;
}

// Resolves a folder that may be relative to the install folder; an empty string means no folder.
std::u16string readFolder(const Node& node, const std::u16string& installFolder) {
    std::u16string folder = node.asUtf16();
    if (folder.empty())
        return folder;
    try {
        // On Windows, \docs and C:docs have a root and are not relative to another folder.
        if (std::filesystem::path(toNativePath(folder)).has_root_path())
            return folder;
    } catch (const std::system_error& invalidPath) {
        node.fail(invalidPath.what());
    }
    return joinPath(installFolder, folder);
}

// Returns the position of a byte as "line 3, column 7"; columns count characters.
std::string describePosition(std::string_view text, std::size_t offset) {
    const LineAndColumn position = LineCounter(text).positionOf(offset);
    return "line " + std::to_string(position.line) + ", column " + std::to_string(position.column);
}

json::value parseJson(std::string_view text) {
    json::parser parser;
    json::error_code error;
    const NonStopArithmetic nonStop;
    const std::size_t consumed = parser.write(text.data(), text.size(), error);
    if (error)
        throw std::runtime_error(describePosition(text, consumed) + ": " + error.message());
    return parser.release();
}

std::string readWhole(const NativePath& path) {
    const auto file = RegularFile::open(path);
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

// A dangling link counts as missing; anything else that cannot be read is a failure.
bool isMissing(const std::filesystem::path& path) {
    std::error_code unknown;
    return std::filesystem::status(path, unknown).type() == std::filesystem::file_type::not_found;
}

} // namespace

struct InstallationManifest::Content {
    std::u16string docLanguage = u"en";
    std::vector<std::u16string> supportedDocLanguages{u"en"};
    std::vector<std::shared_ptr<const TopLevelDocProduct>> topLevelProducts;
    std::u16string supportPackageRoot;
    std::unordered_set<std::u16string> hardwareSupportPackages;

    // Reads the manifest of an install folder; without a manifest, the defaults.
    static std::shared_ptr<const Content> read(const std::u16string& installFolder);

private:
    void take(const Node& manifest, const std::u16string& installFolder);
};

void InstallationManifest::Content::take(const Node& manifest,
                                         const std::u16string& installFolder) {
    manifest.ifPresent("docLanguage",
                       [&](const Node& language) { docLanguage = language.asUtf16(); });
    manifest.ifPresent("supportedDocLanguages",
                       [&](const Node& list) { supportedDocLanguages = readStrings(list); });
    manifest.ifPresent("topLevelProducts",
                       [&](const Node& list) { topLevelProducts = readProducts(list); });
    manifest.ifPresent("supportPackageRoot", [&](const Node& folder) {
        supportPackageRoot = readFolder(folder, installFolder);
    });
    manifest.ifPresent("hardwareSupportPackages", [&](const Node& list) {
        for (std::u16string& name : readStrings(list))
            hardwareSupportPackages.insert(std::move(name));
    });
}

std::shared_ptr<const InstallationManifest::Content>
InstallationManifest::Content::read(const std::u16string& installFolder) {
    auto content = std::make_shared<Content>();
    const std::u16string path = joinPath(installFolder, u"installation.json");
    try {
        const NativePath file = toNativePath(path);
        if (isMissing(file))
            return content;
        const json::value root = parseJson(readWhole(file));
        content->take(Node{root, ""}, installFolder);
    } catch (const std::bad_alloc&) {
        throw; // not the fault of the file
    } catch (const std::exception& failure) {
        throw std::runtime_error(toUtf8(path) + ": " + failure.what());
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
