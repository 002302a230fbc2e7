#pragma once

#include <boost/json/value.hpp>

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

/// How the library reads a text.
enum class ReadAs {
    Utf8,
    Ascii, ///< byte by byte
    Names  ///< as the item says that names are read (NameRule)
};

/// Names are UTF-8 in an object with a list that has an element with this word under this key;
/// else ASCII.
struct NameRule {
    std::string list;
    std::string key;
    std::string word;
};

struct SchemaNode;

struct SchemaMember {
    std::string key;
    const SchemaNode* node;
    bool isRequired;
};

/// What a schema says of one value.
struct SchemaNode {
    std::string kind{}; ///< "object", "array" or "string"; empty: anything goes
    std::vector<SchemaMember> members{};
    const SchemaNode* items = nullptr; ///< of an array
    std::vector<std::string> words{};  ///< of an enumeration, which takes anything
    std::string defaultWord{};         ///< what other words count as
    ReadAs readAs = ReadAs::Utf8;
    bool countsByPresence = false;           ///< the key alone counts, whatever the value
    std::optional<NameRule> nameRule{};      ///< of an item
    std::string alternativeKey{};            ///< an object with this key ...
    const SchemaNode* alternative = nullptr; ///< ... is what this says, and nothing else

    const SchemaMember* find(std::string_view key) const noexcept;
};

/// A JSON Schema of the project, made ready for walking over documents. It understands what the
/// schemas in `schema/` use, with the keywords "x-readAs", "x-names" and "x-countsBy".
class Schema {
public:
    /// \throws std::exception  the text is no schema of that kind
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

/// The schemas of the three kinds of file, built into the tool.
const Schema& resourceSchema();
const Schema& lookupSchema();
const Schema& manifestSchema();

} // namespace refdoc::check
