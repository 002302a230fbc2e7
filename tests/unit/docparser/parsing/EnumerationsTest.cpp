#include "docparser/parsing/Enumerations.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace docparser_tests {
namespace {

using namespace reference::property;
using testing::HasSubstr;
using testing::ThrowsMessage;

// The words of an enumeration, ordered by the numbers of their values.
template <class E>
std::vector<std::string_view> words();

template <>
std::vector<std::string_view> words<RefEntityType>() {
    return {"function",  "class",     "method", "property", "event",    "enumeration",
            "namespace", "interface", "type",   "constant", "operator", "command",
            "component", "app",       "module", "keyword"};
}
template <>
std::vector<std::string_view> words<SyntaxType>() {
    return {"function", "command", "constructor", "operator"};
}
template <>
std::vector<std::string_view> words<DeprecationStatus>() {
    return {"none", "discouraged", "deprecated", "removed"};
}
template <>
std::vector<std::string_view> words<FunctionType>() {
    return {"function", "method", "constructor", "static", "operator", "macro", "callback"};
}

template <class E>
class Enumeration : public testing::Test {};
using Enumerations = testing::Types<RefEntityType, SyntaxType, DeprecationStatus, FunctionType>;
TYPED_TEST_SUITE(Enumeration, Enumerations);

TYPED_TEST(Enumeration, MapsWordsToNumbersAndBack) {
    int number = 0;
    for (const std::string_view word : words<TypeParam>()) {
        EXPECT_EQ(TypeParam::stringToEnum(word), number) << word;
        EXPECT_EQ(TypeParam::enumToString(static_cast<typename TypeParam::Value>(number)), word);
        ++number;
    }
}

TYPED_TEST(Enumeration, DefaultsToItsFirstWord) {
    EXPECT_EQ(TypeParam::getDefaultValue(), 0);
}

TYPED_TEST(Enumeration, ThrowsForAnUnknownWordAndNamesIt) {
    EXPECT_THAT([] { TypeParam::stringToEnum("grafting"); },
                ThrowsMessage<std::invalid_argument>(HasSubstr("grafting")));
}

TYPED_TEST(Enumeration, MatchesWordsExactly) {
    for (const std::string_view known : words<TypeParam>()) {
        const std::string word(known);
        std::string upper = word;
        upper[0] = static_cast<char>(upper[0] - 'a' + 'A');
        for (const std::string& other : {upper, word + ' ', ' ' + word, word.substr(1)})
            EXPECT_THAT([&] { TypeParam::stringToEnum(other); },
                        ThrowsMessage<std::invalid_argument>(HasSubstr(other)))
                << other;
        EXPECT_THROW(TypeParam::stringToEnum(word + '\0'), std::invalid_argument) << word;
    }
    EXPECT_THROW(TypeParam::stringToEnum(""), std::invalid_argument);
    EXPECT_THROW(TypeParam::stringToEnum({}), std::invalid_argument);
}

TYPED_TEST(Enumeration, ThrowsForANumberThatIsNotAValueAndNamesIt) {
    const int count = static_cast<int>(words<TypeParam>().size());
    for (const int number :
         {-1, count, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_THAT(
            [&] { TypeParam::enumToString(static_cast<typename TypeParam::Value>(number)); },
            ThrowsMessage<std::invalid_argument>(HasSubstr(std::to_string(number))));
}

TEST(RefEntityType, NumbersTheComponentTwelve) {
    EXPECT_EQ(RefEntityType::Component, 12);
    EXPECT_EQ(RefEntityType::stringToEnum("component"), RefEntityType::Component);
}

TEST(EnumerationNames, AreTheWordsInUpperCamelCase) {
    EXPECT_EQ(RefEntityType::enumToString(RefEntityType::Enumeration), "enumeration");
    EXPECT_EQ(RefEntityType::enumToString(RefEntityType::App), "app");
    EXPECT_EQ(RefEntityType::enumToString(RefEntityType::Keyword), "keyword");
    EXPECT_EQ(SyntaxType::enumToString(SyntaxType::Constructor), "constructor");
    EXPECT_EQ(DeprecationStatus::enumToString(DeprecationStatus::Discouraged), "discouraged");
    EXPECT_EQ(FunctionType::enumToString(FunctionType::Static), "static");
    EXPECT_EQ(FunctionType::enumToString(FunctionType::Callback), "callback");
}

} // namespace
} // namespace docparser_tests
