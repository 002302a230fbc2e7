#pragma once

#include "docparser/DocResourceParser.hpp"
#include "docparser/account/LoadAccount.hpp"
#include "platform/ReadLimits.hpp"
#include "tests/support/LogCapture.hpp"
#include "tests/support/NativeText.hpp"
#include "tests/support/ResourceText.hpp"
#include "tests/support/TemporaryFolder.hpp"
#include "tests/system/FakeHost.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace docparser_tests {

using reference::docparser::DocResource;
using reference::docparser::DocResourceParser;
using reference::docparser::ParsingResults;
using reference::docparser::ResourceMap;
using reference::property::HeaderInfo;
using reference::property::RefItem;
using reference::property::RefItemLookup;

using Resources = ResourceMap<RefItem>;
using Lookups = ParsingResults<ResourceMap<RefItemLookup>>;

/// Returns true if every test records its retrievals in an account. ctest runs the tests with and
/// without, because an account must not change any result.
bool isObserved();

/// If isObserved(), opens a scope with its own account on the calling thread.
class ObservedThread {
public:
    ObservedThread();
    /// Fails the test if the account is incomplete.
    ~ObservedThread();

    /// Empties the account and releases its memory.
    void forget() { account_ = {}; }

private:
    reference::docparser::LoadAccount account_;
    std::optional<reference::docparser::LoadAccount::Scope> scope_;
};

/// Creates a temporary reference root and support-package root and sets them, together with a
/// FakeHost. The destructor restores the process-wide settings.
class SystemTest : public testing::Test {
public:
    ~SystemTest() override;

protected:
    SystemTest();

    TemporaryFolder folder;
    std::shared_ptr<FakeHost> host = std::make_shared<FakeHost>();
    mutable ObservedThread observed;

    /// Returns the path of the reference root in UTF-16.
    std::u16string root() const;
    /// Return the path of a file in the reference-API, support-package or lookup folder.
    std::string apiPath(std::string_view file) const;
    std::string supportPath(std::string_view file) const;
    std::string lookupPath(std::string_view file) const;

    /// Write a file into the reference-API, support-package or lookup folder.
    void addApi(const std::string& file, std::string_view text) const;
    void addSupport(const std::string& file, std::string_view text) const;
    void addLookup(const std::string& file, std::string_view text) const;

    /// Sets the documentation language and adds it to the supported languages.
    void setLanguage(const std::u16string& language) const;

private:
    const platform::ReadLimits limitsBefore_ = platform::readLimits();
    const std::uint32_t maskBefore_;
};

/// Returns the header that ResourceText writes for a help folder, in a file of `product`.
HeaderInfo header(const std::u16string& helpFolder, const std::u16string& product);

/// Returns a full record with these two strings; all other fields have their defaults.
RefItem record(const std::u16string& href, const std::u16string& refPurpose);

/// Returns a lookup record with these strings; all other fields have their defaults.
RefItemLookup lookupRecord(const std::u16string& name, const std::u16string& href,
                           const std::u16string& refPurpose);

/// Returns a section with one full record for each href and purpose, as ResourceText writes it.
DocResource<RefItem> section(const std::u16string& helpFolder, const std::u16string& product,
                             const std::map<std::u16string, std::u16string>& purposes);

/// Returns a section of lookup records as ResourceText writes it.
DocResource<RefItemLookup> lookupSection(const std::u16string& helpFolder,
                                         const std::u16string& product,
                                         const std::vector<RefItemLookup>& records);

/// Returns the result of getResourceFile(), or nullopt if it throws DocParserException. Fails the
/// test if the exception names another product.
std::optional<Resources> findResources(const std::u16string& product);

} // namespace docparser_tests
