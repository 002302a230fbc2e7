#pragma once

#include "benchmarks/generator/Random.hpp"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace reference::docparser::benchmarks {

/// How the strings of the generated files are made up, to be held against real documentation.
struct TextStatistics {
    std::size_t items = 0;
    std::size_t words = 0;
    std::size_t identifiers = 0;
    std::size_t identifierBytes = 0;
    std::size_t texts = 0;
    std::size_t textBytes = 0;
};

/// The pieces one behind the other.
std::string concat(std::initializer_list<std::string_view> pieces);

/// Writes one JSON object without blanks, UTF-8 as it stands.
class JsonObject {
public:
    explicit JsonObject(TextStatistics& statistics) : statistics_(statistics) {}

    /// A word of an enumeration.
    JsonObject& word(std::string_view key, std::string_view value);
    /// What the format takes for ASCII: an identifier, a link, a line of syntax.
    JsonObject& name(std::string_view key, std::string_view value);
    /// What the format takes for UTF-8: text for people, most names.
    JsonObject& text(std::string_view key, std::string_view value);
    JsonObject& names(std::string_view key, const std::vector<std::string>& values);
    JsonObject& texts(std::string_view key, const std::vector<std::string>& values);
    /// A value that is JSON already.
    JsonObject& json(std::string_view key, std::string_view value);
    /// An array of objects; nothing when there are none.
    JsonObject& objects(std::string_view key, const std::vector<std::string>& values);

    /// Puts the members in another order.
    JsonObject& shuffle(Random& random);

    std::string str() const;

private:
    TextStatistics& statistics_;
    std::vector<std::string> members_;
};

} // namespace reference::docparser::benchmarks
