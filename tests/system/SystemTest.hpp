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

/// Whether retrievals are to report to an account in every test, which must change nothing: ctest
/// runs these tests both ways.
bool isObserved();

/// A scope with an account of its own on the calling thread, if isObserved().
class ObservedThread {
public:
    ObservedThread();
    /// An account that is not complete fails the test.
    ~ObservedThread();

    /// Empties the account and releases its memory.
    void forget() { account_ = {}; }

private:
    reference::docparser::LoadAccount account_;
    std::optional<reference::docparser::LoadAccount::Scope> scope_;
};

/// A reference root and a support-package root in a folder of their own, in force together with a
/// FakeHost. The destructor puts the process-wide settings back.
class SystemTest : public testing::Test {
protected:
    SystemTest();
    ~SystemTest() override;

    TemporaryFolder folder;
    std::shared_ptr<FakeHost> host = std::make_shared<FakeHost>();
    mutable ObservedThread observed;

    /// The reference root, UTF-16.
    std::u16string root() const;
    /// Where a file of the reference-API folder, or of the support-package folder, has its path.
    std::string apiPath(std::string_view file) const;
    std::string supportPath(std::string_view file) const;
    std::string lookupPath(std::string_view file) const;

    /// Write a file into the reference-API folder, the support-package folder or the lookup folder.
    void addApi(const std::string& file, std::string_view text) const;
    void addSupport(const std::string& file, std::string_view text) const;
    void addLookup(const std::string& file, std::string_view text) const;

    /// Makes this the documentation language, and one of the supported languages.
    void setLanguage(const std::u16string& language) const;

private:
    const platform::ReadLimits limitsBefore_ = platform::readLimits();
    const std::uint32_t maskBefore_;
};

/// The header that ResourceText writes for a help folder, in a file asked for by `product`.
HeaderInfo header(const std::u16string& helpFolder, const std::u16string& product);

/// A full record with these two texts and nothing else.
RefItem record(const std::u16string& href, const std::u16string& refPurpose);

/// A lookup record with these texts and nothing else.
RefItemLookup lookupRecord(const std::u16string& name, const std::u16string& href,
                           const std::u16string& refPurpose);

/// A section of full records as ResourceText writes them, each an href and a purpose.
DocResource<RefItem> section(const std::u16string& helpFolder, const std::u16string& product,
                             const std::map<std::u16string, std::u16string>& purposes);

/// A section of lookup records as ResourceText writes them.
DocResource<RefItemLookup> lookupSection(const std::u16string& helpFolder,
                                         const std::u16string& product,
                                         const std::vector<RefItemLookup>& records);

/// What getResourceFile() returns, or nothing when it throws DocParserException; a failure of the
/// test when the exception names another product.
std::optional<Resources> findResources(const std::u16string& product);

} // namespace docparser_tests
