#include "docparser/parsing/TextPlaces.hpp"

#include "platform/LineCounter.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/stream_parser.hpp>

#include <algorithm>
#include <map>
#include <utility>

namespace reference::docparser {

namespace json = boost::json;

namespace {

// The JSON pointers to a value and to the values inside it, as a tree of reference tokens.
struct Wanted {
    std::map<std::string, Wanted, std::less<>> children;
    std::vector<std::size_t> pointers; // indices of the pointers that end here

    // Resets the results of all these pointers.
    void forget(std::vector<std::optional<ValuePlace>>& places) const {
        for (const std::size_t pointer : pointers)
            places[pointer].reset();
        for (const auto& [token, child] : children)
            child.forget(places);
    }
};

std::string unescape(std::string_view token) {
    std::string key;
    for (std::size_t at = 0; at < token.size(); ++at) {
        const bool isEscape = token[at] == '~' && at + 1 < token.size();
        key += isEscape ? (token[++at] == '1' ? '/' : '~') : token[at];
    }
    return key;
}

Wanted collectWanted(const std::vector<std::string>& pointers) {
    Wanted root;
    for (std::size_t index = 0; index < pointers.size(); ++index) {
        Wanted* node = &root;
        std::string_view rest = pointers[index];
        while (!rest.empty()) {
            rest.remove_prefix(1);
            const std::size_t length = std::min(rest.find('/'), rest.size());
            node = &node->children[unescape(rest.substr(0, length))];
            rest.remove_prefix(length);
        }
        node->pointers.push_back(index);
    }
    return root;
}

// Walks through a JSON text and records the positions of the wanted values. It does not validate
// the text, but never reads past its end. The recursion is only as deep as the longest pointer.
class ValueFinder {
public:
    ValueFinder(std::string_view text, std::vector<std::optional<ValuePlace>>& places)
        : text_(text), places_(places), lines_(text) {}

    void walk(const Wanted& wanted, const std::optional<TextPlace>& key) {
        skipSpace();
        // If a key is repeated, the last one counts: discard what an earlier one yielded.
        wanted.forget(places_);
        for (const std::size_t pointer : wanted.pointers)
            places_[pointer] = ValuePlace{placeOf(at_), key};
        if (wanted.children.empty())
            skipValue();
        else if (consume('{'))
            walkMembers(wanted);
        else if (consume('['))
            walkElements(wanted);
        else
            skipValue();
    }

private:
    TextPlace placeOf(std::size_t offset) {
        const platform::LineAndColumn position = lines_.positionOf(offset);
        return {offset, position.line, position.column};
    }

    void walkMembers(const Wanted& wanted) {
        while (moveToNext('}')) {
            const std::size_t start = at_;
            skipValue();
            const auto child = wanted.children.find(decodedKey(start));
            skipSpace();
            consume(':');
            if (child != wanted.children.end())
                walk(child->second, placeOf(start));
            else
                skipValue();
        }
    }

    void walkElements(const Wanted& wanted) {
        for (std::size_t index = 0; moveToNext(']'); ++index) {
            const auto child = wanted.children.find(std::to_string(index));
            if (child != wanted.children.end())
                walk(child->second, std::nullopt);
            else
                skipValue();
        }
    }

    // Moves to the next member or element. Returns false after the closing bracket and at the end
    // of the text.
    bool moveToNext(char closing) {
        skipSpace();
        consume(',');
        skipSpace();
        return !consume(closing) && at_ < text_.size();
    }

    std::string decodedKey(std::size_t start) const {
        const std::string_view quoted = text_.substr(start, at_ - start);
        if (quoted.find('\\') != quoted.npos) {
            json::error_code error;
            const json::value key = json::parse(quoted, error);
            if (const json::string* decoded = key.if_string())
                return std::string(*decoded);
        }
        return quoted.size() < 2 ? std::string() : std::string(quoted.substr(1, quoted.size() - 2));
    }

    bool consume(char character) {
        const bool isThere = at_ < text_.size() && text_[at_] == character;
        at_ += isThere ? 1 : 0;
        return isThere;
    }

    void skipSpace() {
        const auto isSpace = [](char character) {
            return character == ' ' || character == '\t' || character == '\r' || character == '\n';
        };
        while (at_ < text_.size() && isSpace(text_[at_]))
            ++at_;
    }

    void skipString() {
        std::size_t quote = text_.find('"', ++at_);
        for (std::size_t escape = findEscape(quote); escape != text_.npos;
             escape = findEscape(quote)) {
            at_ = escape + 2;
            if (at_ > quote) // the quotation mark was escaped
                quote = text_.find('"', at_);
        }
        at_ = quote < text_.size() ? quote + 1 : text_.size();
    }

    std::size_t findEscape(std::size_t end) const { return text_.substr(0, end).find('\\', at_); }

    // Skips a value and everything in it; at least one character, so that every walk ends.
    void skipValue() {
        skipSpace();
        std::size_t depth = 0;
        do {
            const char character = at_ < text_.size() ? text_[at_] : '\0';
            if (character == '"') {
                skipString();
            } else if (character == '{' || character == '[') {
                ++depth;
                ++at_;
            } else if (character == '}' || character == ']') {
                depth -= depth == 0 ? 0 : 1;
                ++at_;
            } else if (depth > 0) {
                ++at_;
            } else {
                at_ = std::min(text_.find_first_of("\"{}[],: \t\r\n", at_ + 1), text_.size());
            }
        } while (depth > 0 && at_ < text_.size());
    }

    std::string_view text_;
    std::vector<std::optional<ValuePlace>>& places_;
    platform::LineCounter lines_;
    std::size_t at_ = 0;
};

} // namespace

std::string pointerToken(std::string_view key) {
    std::string token;
    for (const char character : key) {
        if (character == '~')
            token += "~0";
        else if (character == '/')
            token += "~1";
        else
            token += character;
    }
    return token;
}

TextPlace placeOfOffset(std::string_view text, std::size_t offset) {
    offset = std::min(offset, text.size());
    const platform::LineAndColumn position = platform::LineCounter(text).positionOf(offset);
    return {offset, position.line, position.column};
}

std::vector<std::optional<ValuePlace>> findValues(std::string_view text,
                                                  const std::vector<std::string>& pointers) {
    std::vector<std::optional<ValuePlace>> places(pointers.size());
    ValueFinder(text, places).walk(collectWanted(pointers), std::nullopt);
    return places;
}

std::optional<SyntaxProblem> findSyntaxProblem(std::string_view text) {
    json::monotonic_resource arena;
    json::stream_parser parser(&arena);
    json::error_code error;
    std::size_t offset = parser.write_some(text, error);
    if (!error && offset < text.size())
        error = json::error::extra_data;
    if (!error)
        parser.finish(error);
    if (!error)
        return std::nullopt;
    return SyntaxProblem{placeOfOffset(text, offset), error.message()};
}

} // namespace reference::docparser
