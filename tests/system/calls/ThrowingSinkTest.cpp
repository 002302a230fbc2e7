#include "tests/support/LogCallback.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"
#include "tests/system/Watchdog.hpp"

#include <filesystem>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>

namespace docparser_tests {
namespace {

// For each k, the sink throws at the k-th line. Only the file that the line is about is skipped.
class ThrowingSinkTest : public SystemTest {
protected:
    ThrowingSinkTest() {
        setLanguage(u"de");
        addApi("Orchard.json", resourceText("orchard", {{"graft.html", "Join trees"}}));
        addApi("Orchard_de.json", resourceText("orchard", {{"prune.html", "Schneiden"}}));
        addSupport("Orchard.json", resourceText("supported", {}));
        addLookup("plain.json", ResourceText("plain").str());
        addLookup("another.json", ResourceText("another").str());
        ZipBytes zip;
        for (const std::string name : {"first", "broken", "last"})
            zip.entries.push_back({.name = name + ".json", .content = ResourceText(name).str()});
        zip.entries[1].crc = 1;
        addLookup("packed.zip", zip.build());
    }

    // Throws a std::exception, std::bad_alloc or an int.
    static void throwSomething(int type) {
        switch (type) {
        case 0: throw std::runtime_error("the disk of the log is full");
        case 1: throw std::bad_alloc();
        default: throw type;
        }
    }

    // Runs a step during which the k-th line throws. Returns that line, or nullopt if the step logs
    // fewer lines.
    template <class Step>
    static std::optional<std::string> failAtLine(int k, int type, Step step) {
        std::optional<std::string> failed;
        const LogCallback callback([&](const std::string& message) {
            if (k-- == 0) {
                failed = message;
                throwSomething(type);
            }
        });
        runWatched(step);
        return failed;
    }

    // For each type of exception, calls check(k, type) for k = 0, 1, ... until it returns false.
    template <class Check>
    static int failAtEachLine(Check check) {
        int failures = 0;
        for (const int type : {0, 1, 2}) {
            for (int k = 0; check(k, type) && !HasFailure(); ++k)
                ++failures;
        }
        return failures;
    }

    static std::string subjectOf(const std::string& message) {
        return message.substr(message.find(": ") + 2);
    }
    static std::string stemOf(const std::string& message) {
        return std::filesystem::path(subjectOf(message)).stem().string();
    }

    // Returns the resources that are found without a file.
    static std::optional<Resources> findWithout(const std::string& file) {
        const std::string away = file + ".away";
        std::filesystem::rename(file, away);
        auto resources = findResources(u"Orchard");
        std::filesystem::rename(away, file);
        return resources;
    }
};

TEST_F(ThrowingSinkTest, ResourcesLackOnlyTheFileWhoseLineFails) {
    const auto whole = findResources(u"Orchard");
    const int failures = failAtEachLine([&](int k, int type) {
        std::optional<Resources> resources;
        const auto line = failAtLine(k, type, [&] { resources = findResources(u"Orchard"); });
        EXPECT_EQ(resources, line ? findWithout(subjectOf(*line)) : whole) << line.value_or("");
        EXPECT_EQ(findResources(u"Orchard"), whole) << "the next call";
        return line.has_value();
    });
    EXPECT_EQ(failures, 3 * 2);
}

TEST_F(ThrowingSinkTest, FileOverTheLimitIsSkippedEvenIfItsLineFails) {
    const std::string small = resourceText("s", {});
    addSupport("Orchard.json", small);
    platform::setReadLimits({.fileBytes = small.size()});
    const auto supported = findResources(u"Orchard");
    ASSERT_TRUE(supported.has_value());
    const int failures = failAtEachLine([&](int k, int type) {
        std::optional<Resources> resources;
        bool hasReachedCaller = false;
        const auto line = failAtLine(k, type, [&] {
            try {
                resources = findResources(u"Orchard");
            } catch (...) {
                hasReachedCaller = true;
            }
        });
        // The two files of the root are over the limit and log two lines each. Then the support
        // folder is tried.
        const bool isOfSupport = line && subjectOf(*line) == supportPath("Orchard.json");
        EXPECT_EQ(resources, isOfSupport ? std::nullopt : supported) << line.value_or("");
        EXPECT_FALSE(hasReachedCaller);
        EXPECT_EQ(findResources(u"Orchard"), supported) << "the next call";
        return line.has_value();
    });
    EXPECT_EQ(failures, 3 * 6);
}

TEST_F(ThrowingSinkTest, LookupsLackOnlyTheProductWhoseLineFails) {
    const Lookups whole = DocResourceParser::getResourceLookupFiles();
    ASSERT_EQ(whole.notInstalled.size(), 4U);
    const int failures = failAtEachLine([&](int k, int type) {
        Lookups lookups;
        const auto line =
            failAtLine(k, type, [&] { lookups = DocResourceParser::getResourceLookupFiles(); });
        Lookups expected = whole;
        if (line) {
            const std::string product = stemOf(*line);
            expected.notInstalled.erase(std::u16string(product.begin(), product.end()));
        }
        EXPECT_EQ(lookups, expected) << line.value_or("");
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), whole) << "the next call";
        return line.has_value();
    });
    EXPECT_EQ(failures, 3 * 6);
}

TEST_F(ThrowingSinkTest, OnlyTheLineBeforeDocParserExceptionThrowsToTheCaller) {
    const int failures = failAtEachLine([&](int k, int type) {
        bool isMissing = false;
        bool hasReachedCaller = false;
        const auto line = failAtLine(k, type, [&] {
            try {
                isMissing = !findResources(u"Absent");
            } catch (...) {
                hasReachedCaller = true;
            }
        });
        const bool isLast = line && line->starts_with("DocParserException");
        EXPECT_EQ(hasReachedCaller, isLast);
        EXPECT_EQ(isMissing, !isLast);
        return line.has_value();
    });
    EXPECT_EQ(failures, 3 * 5);
}

} // namespace
} // namespace docparser_tests
