// Valid files of both formats, truncated and changed at every byte. Each is read or refused.

#include "docparser/parsing/FormatError.hpp"
#include "docparser/retrieval/ResourceText.hpp"
#include "tests/unit/docparser/retrieval/FullFormat.hpp"
#include "tests/unit/docparser/retrieval/LookupFormat.hpp"

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/system/system_error.hpp>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using namespace reference::docparser;
using namespace std::string_view_literals;

template <class Format>
class DamagedResourceText : public testing::Test {
protected:
    using Record = typename Format::Record;

    static ResourceMap<Record> parse(const std::string& text) {
        return parseResourceText<Record>(text, u"p", Format::kParseSection, unobserved);
    }

    // A failure must give its position in the document; a result must be complete.
    static void expectReadOrRefused(const std::string& text) {
        try {
            for (const auto& [key, section] : parse(text)) {
                EXPECT_EQ(section.header.getProduct(), u"p");
                for (const auto& [name, records] : section.items)
                    EXPECT_FALSE(records.empty());
            }
        } catch (const FormatError& error) {
            boost::system::error_code missing;
            const json::value document = json::parse(text);
            EXPECT_NE(document.find_pointer(error.getPointer(), missing), nullptr) << error.what();
            EXPECT_FALSE(error.getReason().empty());
        } catch (const boost::system::system_error&) {
            EXPECT_ANY_THROW(json::parse(text));
        }
    }

    const std::string good_ = json::serialize(Format::sample());
};

using Formats = testing::Types<FullFormat, LookupFormat>;
TYPED_TEST_SUITE(DamagedResourceText, Formats);

TYPED_TEST(DamagedResourceText, EveryProperPrefixIsRefused) {
    EXPECT_NO_THROW(this->parse(this->good_));
    for (std::size_t length = 0; length < this->good_.size(); ++length)
        EXPECT_THROW(this->parse(this->good_.substr(0, length)), boost::system::system_error)
            << length;
}

TYPED_TEST(DamagedResourceText, FileWithAnyByteChangedIsReadOrRefused) {
    // Structural characters of JSON, the limits of ASCII, and lead and continuation bytes of UTF-8.
    constexpr std::string_view values =
        "\0\x01\x1F \"'\\/{}[],:-+.019Ee~\x7F\x80\xBF\xC0\xC3\xE9\xED"
        "\xF4\xFF"sv;
    for (std::size_t i = 0; i < this->good_.size(); ++i) {
        std::string text = this->good_;
        for (const char value : values) {
            text[i] = value;
            SCOPED_TRACE(testing::Message() << "byte " << i << " is " << int(value));
            this->expectReadOrRefused(text);
        }
    }
}

TYPED_TEST(DamagedResourceText, FileWithAnyByteMissingOrRepeatedIsReadOrRefused) {
    for (std::size_t i = 0; i < this->good_.size(); ++i) {
        SCOPED_TRACE(testing::Message() << "byte " << i);
        std::string text = this->good_;
        text.erase(i, 1);
        this->expectReadOrRefused(text);
        text = this->good_;
        text.insert(i, 1, text[i]);
        this->expectReadOrRefused(text);
    }
}

} // namespace
} // namespace docparser_tests
