#include "docparser/c/docparser.h"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "docparser/Queries.hpp"
#include "docparser/account/LoadAccount.hpp"
#include "docparser/c/Failures.hpp"
#include "docparser/c/Installation.hpp"
#include "docparser/json/AccountFields.hpp"
#include "docparser/json/ProductDocument.hpp"
#include "platform/unicode/Transcoding.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/serialize.hpp>

#include <memory>
#include <optional>
#include <string>
#include <vector>

using boost::json::storage_ptr;
using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
using reference::docparser::LoadAccount;
using reference::json::productDocument;
using reference::json::toJson;
using namespace reference::docparser::c;

namespace {

// A string that the caller of the interface receives, and frees with docparser_free().
using OwnedText = std::unique_ptr<char[]>;

OwnedText copyOf(const std::string& text) {
    OwnedText copy = std::make_unique_for_overwrite<char[]>(text.size() + 1);
    text.copy(copy.get(), text.size());
    copy[text.size()] = '\0';
    return copy;
}

// \param makeDocument  takes the storage of the document and returns it
template <class MakeDocument>
OwnedText textOf(const MakeDocument& makeDocument) {
    boost::json::monotonic_resource pool;
    return copyOf(boost::json::serialize(makeDocument(&pool)));
}

OwnedText textOfAccount(const LoadAccount& account) {
    return textOf([&](const storage_ptr& storage) { return toJson(account, storage); });
}

void require(const void* argument, const std::string& name) {
    if (!argument)
        throw InvalidArgument(name + " must not be null");
}

// \param name  of the argument, for the error message
std::u16string requiredString(const char* argument, const std::string& name) {
    require(argument, name);
    if (!platform::isWellFormedUtf8(argument))
        throw InvalidArgument(name + " is not well-formed UTF-8");
    return reference::docparser::fromUtf8(argument);
}

std::optional<std::u16string> optionalString(const char* argument, const std::string& name) {
    return argument ? std::optional(requiredString(argument, name)) : std::nullopt;
}

std::optional<std::vector<std::u16string>> optionalStrings(const char* const* elements,
                                                           size_t count, const std::string& name) {
    if (!elements)
        return std::nullopt;
    std::vector<std::u16string> strings;
    for (size_t index = 0; index < count; ++index)
        strings.push_back(
            requiredString(elements[index], name + '[' + std::to_string(index) + ']'));
    return strings;
}

void clear(char** output) {
    if (output)
        *output = nullptr;
}

// Passes a retrieval's result and account to the caller; neither if one of them cannot be made.
// \param retrieve  takes the storage of the result's document and returns it
// \param result    not null
// \param account   null if the caller does not want it
template <class Retrieve>
void deliver(const Retrieve& retrieve, char** result, char** account) {
    LoadAccount recorded;
    std::optional<LoadAccount::Scope> scope;
    if (account)
        scope.emplace(recorded);
    OwnedText resultText;
    try {
        resultText = textOf(retrieve);
    } catch (const DocParserException& missing) {
        NotFound failure("no usable resource file of the product " +
                         reference::docparser::toUtf8(missing.getProductName()));
        if (account)
            *account = textOfAccount(recorded).release();
        throw failure;
    }
    if (account)
        *account = textOfAccount(recorded).release();
    *result = resultText.release();
}

} // namespace

const char* docparser_version() {
    return DOCPARSER_C_VERSION;
}

const char* docparser_last_error() {
    return lastError();
}

docparser_status docparser_set_install_folder(const char* folder) {
    return run([&] { Installation::instance().select(optionalString(folder, "folder")); });
}

docparser_status docparser_set_root(const char* folder) {
    return run([&] {
        const std::optional<std::u16string> root = optionalString(folder, "folder");
        DocResourceParser::setReferenceRoot(root ? *root
                                                 : Installation::instance().referenceRoot());
    });
}

docparser_status docparser_set_support_folder(const char* folder) {
    return run([&] {
        if (const std::optional<std::u16string> support = optionalString(folder, "folder"))
            DocResourceParser::setSupportPackageRoot(*support);
        else
            DocResourceParser::clearSupportPackageCaches();
    });
}

docparser_status docparser_set_language(const char* current, const char* const* supported,
                                        size_t supported_count) {
    return run([&] {
        Installation::instance().setLanguages(
            optionalString(current, "current"),
            optionalStrings(supported, supported_count, "supported"));
    });
}

docparser_status docparser_get_product(const char* product, char** records, char** account) {
    clear(records);
    clear(account);
    return run([&] {
        require(records, "records");
        const std::u16string name = requiredString(product, "product");
        deliver(
            [&](const storage_ptr& storage) {
                return productDocument(name, DocResourceParser::getResourceFile(name), storage);
            },
            records, account);
    });
}

docparser_status docparser_get_index(char** index, char** account) {
    clear(index);
    clear(account);
    return run([&] {
        require(index, "index");
        deliver(
            [](const storage_ptr& storage) {
                return toJson(DocResourceParser::getResourceLookupFiles(), storage);
            },
            index, account);
    });
}

void docparser_free(char* text) {
    delete[] text;
}
