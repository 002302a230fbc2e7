#pragma once

#include "tests/faults/FaultLoop.hpp"
#include "tests/system/SystemTest.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace docparser_tests {

/// A small root with a file of each kind that the library reads: full resources in English and in
/// the documentation language, and lookups in plain files and in packages. Its texts are so long
/// that each of them takes memory of its own.
class FaultTest : public SystemTest {
protected:
    FaultTest();

    /// Has full resources in both languages below the root and, in English, among the support
    /// packages.
    static inline const std::u16string kProduct = u"Orchard keeping";
    /// Has a file among the support packages alone.
    static inline const std::u16string kSupportProduct = u"Robot control";
    static inline const std::u16string kSupportPackage = u"robot toolkit";

    std::u16string lookupFolder() const;

    /// Restores the settings that each test starts with, and releases the memory of the questions
    /// to the host and of the account.
    void reset() const;

    /// An operation that starts and ends with the settings as they were.
    template <class Result>
    Operation<Result> operation(std::function<Result()> act,
                                std::function<void(const Outcome<Result>&)> judge) const {
        return {[this] { reset(); }, std::move(act), std::move(judge), [this] { reset(); }};
    }

    /// What getResourceFile(kProduct) may return when some of its files, or the end of the overlay,
    /// are lost: what it returns without faults from roots that lack them.
    std::vector<Resources> partialResources() const;

    /// What getResourceLookupFiles() returns without faults when some lookup texts are damaged: one
    /// result for each choice of them.
    std::vector<Lookups> partialLookups() const;

    /// What getResourceLookupFiles() returns from each lookup text as the only file.
    std::vector<Lookups> separateLookups() const;

private:
    void writeLookups(const std::vector<std::string>& texts) const;
};

/// The texts of a listing, to be compared as one value.
using Listing = std::vector<std::u16string>;

/// The names and paths of the files, then of the packages.
std::pair<Listing, Listing> describe(const reference::docparser::ProductLists& lists);

/// Whether a listing is the start of another, or all of it.
bool isStartOf(const Listing& start, const Listing& whole);

/// Whether each section, header and record of a result is, whole, one of those in the parts.
bool isMadeOf(const Lookups& result, const std::vector<Lookups>& parts);

} // namespace docparser_tests
