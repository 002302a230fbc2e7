// The rules of both formats: which keys are required, their types, how strings are converted.

#include "docparser/parsing/FormatError.hpp"
#include "docparser/retrieval/ResourceText.hpp"
#include "tests/support/JsonValues.hpp"
#include "tests/unit/docparser/retrieval/FullFormat.hpp"
#include "tests/unit/docparser/retrieval/LookupFormat.hpp"

#include <boost/json/serialize.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using namespace reference::docparser;

std::string expectedName(ValueType type) {
    return type == ValueType::Array    ? "an array"
           : type == ValueType::Object ? "an object"
                                       : "a string";
}

template <class Record>
json::value& valueAt(json::value& document, const FormatRule<Record>& rule) {
    return document.at_pointer(rule.pointer());
}

template <class Format>
class ResourceTextFormat : public testing::Test {
protected:
    using Record = typename Format::Record;
    using Sections = ResourceMap<Record>;

    static Sections parse(const json::value& document) {
        return parseResourceText<Record>(json::serialize(document), u"p", Format::kParseSection,
                                         unobserved);
    }

    static void expectFailure(const json::value& document, const std::string& pointer,
                              const std::string& reason) {
        try {
            parse(document);
            ADD_FAILURE() << "parsed: " << json::serialize(document);
        } catch (const FormatError& error) {
            EXPECT_EQ(error.getPointer(), pointer);
            EXPECT_EQ(error.getReason(), reason);
            EXPECT_EQ(error.what(), pointer + ": " + reason);
        }
    }

    static void expectField(const json::value& document, const FormatRule<Record>& rule,
                            const std::u16string& expected) {
        try {
            EXPECT_EQ(rule.field(parse(document)), expected);
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
    }

    static json::value without(const FormatRule<Record>& rule) {
        json::value document = Format::sample();
        document.at_pointer(rule.parent).as_object().erase(rule.key);
        return document;
    }

    const FormatRules<Record> rules_ = Format::rules();
};

using Formats = testing::Types<FullFormat, LookupFormat>;
TYPED_TEST_SUITE(ResourceTextFormat, Formats);

TYPED_TEST(ResourceTextFormat, EveryPositionInTheSampleHasARule) {
    std::set<std::string> pointers;
    addPointers(TypeParam::sample(), "", pointers);
    for (const auto& rule : this->rules_.all())
        EXPECT_EQ(pointers.erase(rule.pointer()), 1U) << rule.pointer();
    for (const std::string& pointer : TypeParam::unread())
        pointers.erase(pointer);
    // The item of the support package only tells the sections apart; its keys are the same.
    std::erase_if(pointers, [](const std::string& pointer) {
        return pointer.starts_with("/supportPackages/0/refItems/0/");
    });
    EXPECT_THAT(pointers, testing::IsEmpty());
}

TYPED_TEST(ResourceTextFormat, EveryValueInTheSampleReachesItsField) {
    const auto sections = TestFixture::parse(TypeParam::sample());
    for (const auto& rule : this->rules_.all()) {
        if (!rule.field)
            continue;
        EXPECT_NE(rule.field(sections), rule.fallback()) << rule.pointer();
    }
}

TYPED_TEST(ResourceTextFormat, ErrorNamesAMissingRequiredKeyAndItsObject) {
    for (const auto& rule : this->rules_.all()) {
        if (rule.presence != Presence::Required)
            continue;
        SCOPED_TRACE(rule.pointer());
        TestFixture::expectFailure(TestFixture::without(rule), rule.parent,
                                   "the required key \"" + rule.key + "\" is missing");
    }
}

TYPED_TEST(ResourceTextFormat, MissingOptionalKeyLeavesTheDefault) {
    for (const auto& rule : this->rules_.all()) {
        if (rule.presence != Presence::Optional)
            continue;
        SCOPED_TRACE(rule.pointer());
        TestFixture::expectField(TestFixture::without(rule), rule, rule.fallback());
    }
}

TYPED_TEST(ResourceTextFormat, ErrorNamesPositionAndTypeOfAWrongValue) {
    for (const auto& rule : this->rules_.all()) {
        const bool isChecked = rule.type != ValueType::Word && rule.type != ValueType::Anything;
        for (const auto& [value, type] : everyType()) {
            if (!isChecked || type == expectedName(rule.type))
                continue;
            SCOPED_TRACE(rule.pointer() + " is " + type);
            json::value document = TypeParam::sample();
            valueAt(document, rule) = value;
            TestFixture::expectFailure(document, rule.pointer(),
                                       "expected " + expectedName(rule.type) + ", found " + type);
        }
    }
}

TYPED_TEST(ResourceTextFormat, UnknownWordsAndOtherTypesMeanTheDefault) {
    for (const auto& rule : this->rules_.all()) {
        for (const auto& [value, type] : everyType()) {
            if (rule.type != ValueType::Word)
                continue;
            SCOPED_TRACE(rule.pointer() + " is " + type);
            json::value document = TypeParam::sample();
            valueAt(document, rule) = value;
            TestFixture::expectField(document, rule, rule.fallback());
        }
    }
}

TYPED_TEST(ResourceTextFormat, KeyThatOnlyNeedsToExistAcceptsAnyValue) {
    for (const auto& rule : this->rules_.all()) {
        for (const auto& [value, type] : everyType()) {
            if (rule.type != ValueType::Anything)
                continue;
            SCOPED_TRACE(rule.pointer() + " is " + type);
            json::value document = TypeParam::sample();
            valueAt(document, rule) = value;
            TestFixture::expectField(document, rule, u"1");
        }
    }
}

TYPED_TEST(ResourceTextFormat, DocumentThatIsNotAnObjectIsRefused) {
    for (const auto& [value, type] : everyType()) {
        SCOPED_TRACE(type);
        const std::string reason = type == "an object"
                                       ? "the required key \"productName\" is missing"
                                       : "expected an object, found " + type;
        TestFixture::expectFailure(value, "", reason);
    }
}

TYPED_TEST(ResourceTextFormat, EachStringIsConvertedByItsRule) {
    for (const auto& rule : this->rules_.all()) {
        for (const bool hasComponent : {false, true}) {
            if (rule.type != ValueType::String)
                continue;
            SCOPED_TRACE(rule.pointer() + (hasComponent ? " of a component" : ""));
            json::value document = TypeParam::sample();
            valueAt(document, rule) = "\xC3\xA9";
            if (hasComponent)
                TypeParam::addComponent(document);
            const bool isDecoded =
                rule.reading == Reading::Utf8 || (rule.reading == Reading::Name && hasComponent);
            TestFixture::expectField(document, rule, isDecoded ? u"\u00E9" : u"\u00C3\u00A9");
        }
    }
}

TYPED_TEST(ResourceTextFormat, StringsMayBeEmptyAndContainNul) {
    const std::u16string nul(1, u'\0');
    for (const auto& rule : this->rules_.all()) {
        if (rule.type != ValueType::String)
            continue;
        SCOPED_TRACE(rule.pointer());
        json::value document = TypeParam::sample();
        valueAt(document, rule) = "";
        TestFixture::expectField(document, rule, u"");
        valueAt(document, rule) = std::string(1, '\0');
        TestFixture::expectField(document, rule, nul);
    }
}

TYPED_TEST(ResourceTextFormat, ListsMayBeEmpty) {
    for (const auto& rule : this->rules_.all()) {
        if (rule.type != ValueType::Array)
            continue;
        SCOPED_TRACE(rule.pointer());
        json::value document = TypeParam::sample();
        valueAt(document, rule) = json::array{};
        TestFixture::expectField(document, rule, u"0");
    }
}

TYPED_TEST(ResourceTextFormat, UnknownKeysAreIgnored) {
    const auto expected = TestFixture::parse(TypeParam::sample());
    for (const std::string& pointer : TypeParam::unread()) {
        for (const auto& [value, type] : everyType()) {
            SCOPED_TRACE(pointer + " is " + type);
            json::value document = TypeParam::sample();
            putIn(document, pointer, value);
            EXPECT_EQ(TestFixture::parse(document), expected);
        }
    }
}

} // namespace
} // namespace docparser_tests
