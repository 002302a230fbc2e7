// Parses arbitrary bytes as JSON and compares the result with that of Boost.JSON's default options.

#include "docparser/parsing/DocumentParser.hpp"
#include "fuzz/support/Require.hpp"
#include "fuzz/support/Target.hpp"

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/system/system_error.hpp>

#include <string>

namespace {

namespace json = boost::json;

// A document or an error. Documents are compared in serialised form, because a number
// such as -0e+9991 is read as NaN, which is not equal to itself.
struct Outcome {
    std::string document;
    json::error_code error;

    bool operator==(const Outcome&) const = default;
};

Outcome parsedByTheLibrary(const std::string& text) {
    json::monotonic_resource arena;
    try {
        return {json::serialize(reference::docparser::parseDocument(text, arena)), {}};
    } catch (const boost::system::system_error& error) {
        return {{}, error.code()};
    }
}

Outcome parsedByDefault(const std::string& text) {
    json::error_code error;
    const json::value document = json::parse(text, error);
    return {error ? std::string() : json::serialize(document), error};
}

void requireSameOutcome(const std::string& text) {
    docparser_fuzz::require(parsedByTheLibrary(text) == parsedByDefault(text),
                            "a text is parsed as with the default options");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string text(bytes, bytes + size);
    requireSameOutcome(text);
    // As a later part of a translated file, and as its end.
    requireSameOutcome("[\"\xC3\xA9\"," + text + "]");
    requireSameOutcome("[\"\xC3\xA9\", \"" + text);
    return 0;
}
