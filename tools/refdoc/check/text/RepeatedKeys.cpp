#include "tools/refdoc/check/text/RepeatedKeys.hpp"

#include "docparser/parsing/TextPlaces.hpp"
#include "tools/refdoc/check/text/JsonLexer.hpp"

#include <boost/json/parse.hpp>

#include <algorithm>
#include <deque>
#include <tuple>

namespace refdoc::check {

namespace {

using reference::docparser::pointerToken;

struct Key {
    std::string_view name;
    std::size_t offset;
};

// An object or array that has not ended yet.
struct Container {
    bool isObject;
    std::size_t firstKey;      // its position among the keys of all open objects
    bool isKeyNext = true;     // in an object, a string is a key
    std::size_t element = 0;   // the index of the current element of an array
    std::string_view member{}; // the key of the current member of an object
};

class KeyCollector {
public:
    explicit KeyCollector(std::string_view text) : text_(text) {}

    std::vector<RepeatedKey> collect() {
        JsonLexer lexer(text_);
        for (Token token = lexer.next(); token.type != TokenType::End; token = lexer.next())
            pass(token);
        std::ranges::sort(repeated_, {}, &RepeatedKey::later);
        return std::move(repeated_);
    }

private:
    void pass(const Token& token) {
        switch (token.type) {
        case TokenType::ObjectBegin:
        case TokenType::ArrayBegin:
            open_.push_back(
                {.isObject = token.type == TokenType::ObjectBegin, .firstKey = keys_.size()});
            break;
        case TokenType::ObjectEnd:
        case TokenType::ArrayEnd:
            compareKeys();
            open_.pop_back();
            break;
        case TokenType::Colon: open_.back().isKeyNext = false; break;
        case TokenType::Comma:
            open_.back().isKeyNext = true;
            ++open_.back().element;
            break;
        case TokenType::String:
            if (!open_.empty() && open_.back().isObject && open_.back().isKeyNext)
                addKey(token);
            break;
        default: break;
        }
    }

    void addKey(const Token& token) {
        open_.back().member = decode(text_.substr(token.begin, token.end - token.begin));
        keys_.push_back({open_.back().member, token.begin});
    }

    // \param quoted  a JSON string with its quotation marks
    std::string_view decode(std::string_view quoted) {
        if (quoted.find('\\') == std::string_view::npos)
            return quoted.substr(1, quoted.size() - 2);
        return decoded_.emplace_back(boost::json::parse(quoted).as_string());
    }

    // Compares the keys of the innermost object or array, which has ended, and removes them.
    void compareKeys() {
        const auto first = keys_.begin() + static_cast<std::ptrdiff_t>(open_.back().firstKey);
        std::sort(first, keys_.end(), [](const Key& left, const Key& right) {
            return std::tie(left.name, left.offset) < std::tie(right.name, right.offset);
        });
        const auto isEqual = [](const Key& left, const Key& right) {
            return left.name == right.name;
        };
        for (auto pair = std::adjacent_find(first, keys_.end(), isEqual); pair != keys_.end();
             pair = std::adjacent_find(pair + 1, keys_.end(), isEqual)) {
            repeated_.push_back({pointerTo(pair->name), pair->offset, (pair + 1)->offset});
        }
        keys_.erase(first, keys_.end());
    }

    // \param key  of a member of the innermost object
    std::string pointerTo(std::string_view key) const {
        std::string pointer;
        for (std::size_t level = 0; level + 1 < open_.size(); ++level) {
            const Container& outer = open_[level];
            pointer +=
                '/' + (outer.isObject ? pointerToken(outer.member) : std::to_string(outer.element));
        }
        return pointer + '/' + pointerToken(key);
    }

    std::string_view text_;
    std::vector<Container> open_;
    std::vector<Key> keys_;           // of all open objects, the innermost last
    std::deque<std::string> decoded_; // keys that have escapes; a deque does not move them
    std::vector<RepeatedKey> repeated_;
};

} // namespace

std::vector<RepeatedKey> findRepeatedKeys(std::string_view text) {
    return KeyCollector(text).collect();
}

} // namespace refdoc::check
