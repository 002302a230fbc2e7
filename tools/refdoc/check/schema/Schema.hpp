#pragma once

#include <boost/json/value.hpp>

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

/// How the library reads a string.
enum class ReadAs {
    Utf8,
    Ascii, ///< byte by byte
    Names  ///< depending on the item (NameRule)
};

/// Names are UTF-8 if `list` has an element whose `key` is `word`, and ASCII otherwise.
struct NameRule {
    std::string list;
    std::string key;
    std::string word;
};

/// The path under a key has a folder whose name is under one of the other keys.
struct PathRule {
    std::string path;
    std::vector<std::string> folders;
};

struct SchemaNode;

struct SchemaMember {
    std::string key;
    const SchemaNode* node;
    bool isRequired;
};

/// What a schema says about one value.
struct SchemaNode {
    std::string type{}; ///< "object", "array" or "string"; empty: any type
    std::vector<SchemaMember> members{};
    const SchemaNode* items = nullptr; ///< of an array
    std::vector<std::string> words{};  ///< of an enumeration, whose values may have any type
    std::string defaultWord{};         ///< how other words are read
    ReadAs readAs = ReadAs::Utf8;
    bool countsByPresence = false;           ///< the value of the key has no effect
    std::vector<std::string> knownTexts{};   ///< of a string; empty: any
    std::optional<NameRule> nameRule{};      ///< of an item
    std::optional<PathRule> pathRule{};      ///< of a section
    std::string alternativeKey{};            ///< an object with this key
    const SchemaNode* alternative = nullptr; ///< is described by this node instead

    const SchemaMember* find(std::string_view key) const noexcept;
};

/// A JSON Schema of the project, compiled for comparisons with documents. Supports the keywords
/// that the schemas in `schema/` use, including those that begin with "x-".
class Schema {
public:
    /// \throws std::exception  the text is not a schema, or has other keywords
    explicit Schema(std::string_view text);
    Schema(const Schema&) = delete;
    Schema& operator=(const Schema&) = delete;

    const SchemaNode& root() const noexcept { return *root_; }

private:
    const SchemaNode* resolve(std::string_view reference);
    const SchemaNode* compile(const boost::json::object& source);
    void fill(SchemaNode& node, const boost::json::object& source);
    void fillMembers(SchemaNode& node, const boost::json::object& source);
    void fillKeywords(SchemaNode& node, const boost::json::object& source);
    void inherit(SchemaNode& node, const boost::json::value& reference);

    boost::json::value document_;
    std::deque<SchemaNode> nodes_;
    std::map<std::string, const SchemaNode*, std::less<>> references_;
    const SchemaNode* root_;
};

/// The schemas of the three types of files, built into the tool.
const Schema& resourceSchema();
const Schema& lookupSchema();
const Schema& manifestSchema();

} // namespace refdoc::check
