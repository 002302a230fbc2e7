#include "tools/refdoc/check/text/RepeatedKeys.hpp"

#include "docparser/parsing/TextPlaces.hpp"
#include "tools/refdoc/check/text/JsonLexer.hpp"

#include <boost/json/parse.hpp>

#include <deque>
#include <map>
#include <memory_resource>

namespace refdoc::check {

namespace {

using reference::docparser::pointerToken;

using Offsets = std::pmr::map<std::string_view, std::size_t>;

// An object or array that has not ended yet.
struct Container {
    bool isObject;
    bool isKeyNext = true;     // in an object, a string is a key
    std::size_t element = 0;   // the index of the current element of an array
    std::string_view member{}; // the key of the current member of an object
    Offsets keys;              // where the keys of an object occur last
};

class KeyCollector {
public:
    explicit KeyCollector(std::string_view text) : text_(text) {}

    std::vector<RepeatedKey> collect() {
        JsonLexer lexer(text_);
        for (Token token = lexer.next(); token.type != TokenType::End; token = lexer.next())
            pass(token);
        return std::move(repeated_);
    }

private:
    void pass(const Token& token) {
        switch (token.type) {
        case TokenType::ObjectBegin:
        case TokenType::ArrayBegin:
            open_.push_back(
                {.isObject = token.type == TokenType::ObjectBegin, .keys = Offsets(&keyMemory_)});
            break;
        case TokenType::ObjectEnd:
        case TokenType::ArrayEnd: open_.pop_back(); break;
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
        Container& object = open_.back();
        object.member = decode(text_.substr(token.begin, token.end - token.begin));
        const auto [key, isNew] = object.keys.try_emplace(object.member, token.begin);
        if (isNew)
            return;
        repeated_.push_back({currentPointer(), key->second, token.begin});
        key->second = token.begin;
    }

    // \param quoted  a JSON string with its quotation marks
    std::string_view decode(std::string_view quoted) {
        if (quoted.find('\\') == std::string_view::npos)
            return quoted.substr(1, quoted.size() - 2);
        return decoded_.emplace_back(boost::json::parse(quoted).as_string());
    }

    // Returns the pointer to the current member of the innermost object.
    std::string currentPointer() const {
        std::string pointer;
        for (const Container& outer : open_)
            pointer +=
                '/' + (outer.isObject ? pointerToken(outer.member) : std::to_string(outer.element));
        return pointer;
    }

    std::string_view text_;
    std::pmr::unsynchronized_pool_resource keyMemory_; // reused by one object after the other
    std::vector<Container> open_;
    std::deque<std::string> decoded_; // keys that have escapes; a deque does not move them
    std::vector<RepeatedKey> repeated_;
};

} // namespace

std::vector<RepeatedKey> findRepeatedKeys(std::string_view text) {
    return KeyCollector(text).collect();
}

} // namespace refdoc::check
