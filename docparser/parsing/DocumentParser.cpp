#include "docparser/parsing/DocumentParser.hpp"

#include "platform/system/NonStopArithmetic.hpp"
#include "platform/unicode/Transcoding.hpp"

#include <boost/json/parse.hpp>

#include <cstddef>

namespace reference::docparser {

namespace json = boost::json;

namespace {

// Nearly every translated file has a non-ASCII character within this many bytes; few English files
// do.
constexpr std::size_t kBytesOfStart = 1024;

bool isAscii(std::string_view text) noexcept {
    unsigned char allBits = 0;
    for (const char byte : text)
        allBits |= static_cast<unsigned char>(byte);
    return allBits < 0x80;
}

// The parser validates a string byte by byte after its first character beyond ASCII. Validating the
// whole text in advance saves that. Ill-formed text is left to the parser, which reports the error;
// so is English text, for which the second pass would cost more than it saves.
bool isValidatedInAdvance(std::string_view text) noexcept {
    return !isAscii(text.substr(0, kBytesOfStart)) && platform::isWellFormedUtf8(text);
}

} // namespace

json::value parseDocument(std::string_view text, json::monotonic_resource& arena) {
    const platform::NonStopArithmetic nonStop;
    json::parse_options options;
    options.allow_invalid_utf8 = isValidatedInAdvance(text);
    return json::parse(text, &arena, options);
}

} // namespace reference::docparser
