#pragma once

#include "tests/faults/FaultLoop.hpp"
#include "tests/system/SystemTest.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace docparser_tests {

/// A small root with a file of each type that the library reads: full resources in English and in
/// the documentation language, and lookups in plain files and in packages. Its strings are too long
/// for small-string storage, so each of them needs an allocation.
class FaultTest : public SystemTest {
protected:
    FaultTest();

    /// Has full resources in both languages below the root, and in English in the support folder.
    static inline const std::u16string kProduct = u"Orchard keeping";
    /// Has a file only in the support folder.
    static inline const std::u16string kSupportProduct = u"Robot control";
    static inline const std::u16string kSupportPackage = u"robot toolkit";

    std::u16string lookupFolder() const;

    /// Restores the initial settings and frees the recorded questions to the host and the account.
    void reset() const;

    /// An operation that runs with the initial settings and is followed by a reset().
    template <class Result>
    Operation<Result> operation(std::function<Result()> act,
                                std::function<void(const Outcome<Result>&)> judge) const {
        return {[this] { reset(); }, std::move(act), std::move(judge), [this] { reset(); }};
    }

    /// The results that getResourceFile(kProduct) may return if it loses some of its files or the
    /// end of the overlay: what it returns without faults from roots that lack them.
    std::vector<Resources> partialResources() const;

    /// What getResourceLookupFiles() returns without faults if some lookup texts are damaged: one
    /// result for each combination of damaged texts.
    std::vector<Lookups> partialLookups() const;

    /// What getResourceLookupFiles() returns for each lookup text if it is the only file.
    std::vector<Lookups> separateLookups() const;

private:
    void writeLookups(const std::vector<std::string>& texts) const;
};

/// Names and paths of products, one string per product.
using Listing = std::vector<std::u16string>;

/// The listings of the JSON files and of the packages.
std::pair<Listing, Listing> describe(const reference::docparser::ProductLists& lists);

/// Whether `whole` starts with `start`; true also if they are equal.
bool isStartOf(const Listing& start, const Listing& whole);

/// Whether each key, header and record of a result also occurs unchanged in one of the parts.
bool isMadeOf(const Lookups& result, const std::vector<Lookups>& parts);

} // namespace docparser_tests
