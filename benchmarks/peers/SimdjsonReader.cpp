#include "benchmarks/peers/FileReader.hpp"
#include "benchmarks/peers/Peers.hpp"

#include <simdjson.h>

namespace reference::docparser::benchmarks {

namespace {

namespace ondemand = simdjson::ondemand;

static_assert(kSpareBytes >= simdjson::SIMDJSON_PADDING);

// A key as the file has it; the keys of the format need no escapes.
struct RawKey {
    ondemand::raw_json_string key;

    friend bool operator==(RawKey left, std::string_view right) {
        return left.key.unsafe_is_equal(right.size(), right);
    }
};

struct Object;

struct Value {
    ondemand::value json;

    std::string_view string() { return json.get_string(); }
    std::size_t count() const { return 0; }

    template <class Visit>
    void forEachElement(Visit visit) {
        for (auto element : json.get_array())
            visit(Value{element.value()});
    }

    Object object();
};

struct Object {
    ondemand::object json;

    void restart() { static_cast<void>(json.reset().value()); }

    template <class Visit>
    void forEachMember(Visit visit) {
        for (auto member : json) {
            ondemand::field field = std::move(member).take_value();
            visit(RawKey{field.key()}, Value{field.value()});
        }
    }
};

Object Value::object() {
    return {json.get_object()};
}

} // namespace

template <class T>
ResourceMap<T> readWithSimdjson(std::string text, const std::u16string& product) {
    thread_local ondemand::parser parser;
    text.reserve(text.size() + kSpareBytes);
    ondemand::document document = parser.iterate(text);
    return readFile<T>(Object{document.get_object()}, product);
}

template ResourceMap<RefItem> readWithSimdjson(std::string, const std::u16string&);
template ResourceMap<RefItemLookup> readWithSimdjson(std::string, const std::u16string&);

} // namespace reference::docparser::benchmarks
