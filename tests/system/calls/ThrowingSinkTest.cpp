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

// A log whose k-th line cannot be written, for each k: whatever the line is about is lost, and
// nothing else.
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

    // What sinks throw: what the traps know, what they do not know, and what has no type.
    static void throwSomething(int kind) {
        switch (kind) {
        case 0: throw std::runtime_error("the disk of the log is full");
        case 1: throw std::bad_alloc();
        default: throw kind;
        }
    }

    // Runs a step while the k-th line throws; that line, or nothing when there were fewer.
    template <class Step>
    static std::optional<std::string> failAtLine(int k, int kind, Step step) {
        std::optional<std::string> failed;
        const LogCallback callback([&](const std::string& message) {
            if (k-- == 0) {
                failed = message;
                throwSomething(kind);
            }
        });
        runWatched(step);
        return failed;
    }

    // Calls check(k, kind) for each line until it is false, and for each kind of exception.
    template <class Check>
    static int failAtEachLine(Check check) {
        int failures = 0;
        for (const int kind : {0, 1, 2}) {
            for (int k = 0; check(k, kind) && !HasFailure(); ++k)
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

    // What is found while a file is away.
    static std::optional<Resources> findWithout(const std::string& file) {
        const std::string away = file + ".away";
        std::filesystem::rename(file, away);
        const auto resources = findResources(u"Orchard");
        std::filesystem::rename(away, file);
        return resources;
    }
};

TEST_F(ThrowingSinkTest, ResourcesLackTheFileWhoseLineIsLost) {
    const auto whole = findResources(u"Orchard");
    const int failures = failAtEachLine([&](int k, int kind) {
        std::optional<Resources> resources;
        const auto line = failAtLine(k, kind, [&] { resources = findResources(u"Orchard"); });
        EXPECT_EQ(resources, line ? findWithout(subjectOf(*line)) : whole) << line.value_or("");
        EXPECT_EQ(findResources(u"Orchard"), whole) << "the next call";
        return line.has_value();
    });
    EXPECT_EQ(failures, 3 * 2);
}

TEST_F(ThrowingSinkTest, ResourcesOverTheLimitAreLostWithTheirProblemOrWithoutIt) {
    const std::string small = resourceText("s", {});
    addSupport("Orchard.json", small);
    platform::setReadLimits({.fileBytes = small.size()});
    const auto supported = findResources(u"Orchard");
    ASSERT_TRUE(supported.has_value());
    const int failures = failAtEachLine([&](int k, int kind) {
        std::optional<Resources> resources;
        bool hasPassedOut = false;
        const auto line = failAtLine(k, kind, [&] {
            try {
                resources = findResources(u"Orchard");
            } catch (...) {
                hasPassedOut = true;
            }
        });
        // The support folder's files come after the two of the root, with two lines each.
        const bool isOfSupport = line && subjectOf(*line) == supportPath("Orchard.json");
        EXPECT_EQ(resources, isOfSupport ? std::nullopt : supported) << line.value_or("");
        EXPECT_FALSE(hasPassedOut);
        EXPECT_EQ(findResources(u"Orchard"), supported) << "the next call";
        return line.has_value();
    });
    EXPECT_EQ(failures, 3 * 6);
}

TEST_F(ThrowingSinkTest, LookupsLackTheProductWhoseLineIsLost) {
    const Lookups whole = DocResourceParser::getResourceLookupFiles();
    ASSERT_EQ(whole.notInstalled.size(), 4U);
    const int failures = failAtEachLine([&](int k, int kind) {
        Lookups lookups;
        const auto line =
            failAtLine(k, kind, [&] { lookups = DocResourceParser::getResourceLookupFiles(); });
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

TEST_F(ThrowingSinkTest, AMissingProductStaysMissingAndTheLineOfItsExceptionPassesOut) {
    const int failures = failAtEachLine([&](int k, int kind) {
        bool isMissing = false;
        bool hasPassedOut = false;
        const auto line = failAtLine(k, kind, [&] {
            try {
                isMissing = !findResources(u"Absent");
            } catch (...) {
                hasPassedOut = true;
            }
        });
        const bool isLast = line && line->starts_with("DocParserException");
        EXPECT_EQ(hasPassedOut, isLast);
        EXPECT_EQ(isMissing, !isLast);
        return line.has_value();
    });
    EXPECT_EQ(failures, 3 * 5);
}

} // namespace
} // namespace docparser_tests
