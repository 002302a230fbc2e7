#include "tests/system/SystemTest.hpp"

#include "docparser/DocParserException.hpp"
#include "tests/support/Records.hpp"

#include <cstdlib>
#include <filesystem>

namespace docparser_tests {

using namespace reference::property;

namespace {

const std::filesystem::path kApiFolder = "root/docCatalog/referenceapi";
const std::filesystem::path kLookupFolder = "root/docCatalog/referenceapi_lookup";
const std::filesystem::path kSupportFolder = "support/help/docCatalog/referenceapi";

} // namespace

bool isObserved() {
    return std::getenv("DOCPARSER_TEST_OBSERVED") != nullptr;
}

ObservedThread::ObservedThread() {
    if (isObserved())
        scope_.emplace(account_);
}

ObservedThread::~ObservedThread() {
    EXPECT_TRUE(account_.isComplete);
}

SystemTest::SystemTest() : maskBefore_(foundation::log::severityMask()) {
    for (const auto& below : {kApiFolder, kLookupFolder, kSupportFolder})
        std::filesystem::create_directories(folder.path() / below);
    host->packageRoot = folder.u16() + native(u"/support");
    platform::setHostServices(host);
    DocResourceParser::restoreDefaultSettings();
    DocResourceParser::setReferenceRoot(root());
}

SystemTest::~SystemTest() {
    platform::setHostServices(nullptr);
    DocResourceParser::restoreDefaultSettings();
    platform::setReadLimits(limitsBefore_);
    foundation::log::setSeverityMask(maskBefore_);
}

std::u16string SystemTest::root() const {
    return folder.u16() + native(u"/root");
}

std::string SystemTest::apiPath(std::string_view file) const {
    return textOf((folder.path() / kApiFolder / pathOf(file)).make_preferred());
}

std::string SystemTest::supportPath(std::string_view file) const {
    return textOf((folder.path() / kSupportFolder / pathOf(file)).make_preferred());
}

std::string SystemTest::lookupPath(std::string_view file) const {
    return textOf((folder.path() / kLookupFolder / pathOf(file)).make_preferred());
}

void SystemTest::addApi(const std::string& file, std::string_view text) const {
    folder.write(kApiFolder / pathOf(file), text);
}

void SystemTest::addSupport(const std::string& file, std::string_view text) const {
    folder.write(kSupportFolder / pathOf(file), text);
}

void SystemTest::addLookup(const std::string& file, std::string_view text) const {
    folder.write(kLookupFolder / pathOf(file), text);
}

void SystemTest::setLanguage(const std::u16string& language) const {
    host->language = language;
    host->languages.push_back(language);
}

HeaderInfo header(const std::u16string& helpFolder, const std::u16string& product) {
    return {u"",
            u"",
            helpFolder + u" name",
            helpFolder + u" code",
            helpFolder,
            helpFolder + u"/help",
            product};
}

RefItem record(const std::u16string& href, const std::u16string& refPurpose) {
    return makeRefItem({.href = href, .refPurpose = refPurpose});
}

RefItemLookup lookupRecord(const std::u16string& name, const std::u16string& href,
                           const std::u16string& refPurpose) {
    return {name, RefEntityType::Function, refPurpose, false, href, FunctionType::Function};
}

DocResource<RefItem> section(const std::u16string& helpFolder, const std::u16string& product,
                             const std::map<std::u16string, std::u16string>& purposes) {
    DocResource<RefItem> result{header(helpFolder, product), {}};
    for (const auto& [href, purpose] : purposes)
        result.items[href].push_back(record(href, purpose));
    return result;
}

DocResource<RefItemLookup> lookupSection(const std::u16string& helpFolder,
                                         const std::u16string& product,
                                         const std::vector<RefItemLookup>& records) {
    DocResource<RefItemLookup> result{header(helpFolder, product), {}};
    for (const RefItemLookup& entry : records)
        result.items[entry.getName()].push_back(entry);
    return result;
}

std::optional<Resources> findResources(const std::u16string& product) {
    try {
        return DocResourceParser::getResourceFile(product);
    } catch (const reference::docparser::DocParserException& exception) {
        EXPECT_EQ(exception.getProductName(), product);
        return std::nullopt;
    }
}

} // namespace docparser_tests
