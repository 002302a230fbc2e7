#include "benchmarks/peers/Peers.hpp"
#include "benchmarks/peers/SectionReader.hpp"

#include <simdjson.h>

namespace reference::docparser::benchmarks {

namespace {

namespace ondemand = simdjson::ondemand;

static_assert(kSpareBytes >= simdjson::SIMDJSON_PADDING);

// A key as it stands in the text; the format's keys need no escapes.
struct RawKey {
    ondemand::raw_json_string key;

    friend bool operator==(RawKey left, std::string_view right) {
        return left.key.unsafe_is_equal(right.size(), right);
    }
};

struct Simdjson {
    using Value = ondemand::value;
    using Object = ondemand::object;

    static Object object(Value value) { return value.get_object(); }
    static void restart(Object& object) { static_cast<void>(object.reset().value()); }
    // Counting would go over the array's text once more.
    static std::size_t count(Value) { return 0; }
    static std::string_view text(Value value) { return value.get_string(); }

    template <class Visit>
    static void forEachMember(Object& object, Visit visit) {
        for (auto member : object) {
            ondemand::field field = std::move(member).take_value();
            visit(RawKey{field.key()}, field.value());
        }
    }

    template <class Visit>
    static void forEachElement(Value value, Visit visit) {
        for (auto element : value.get_array())
            visit(element.value());
    }
};

} // namespace

template <class T>
ResourceMap<T> readWithSimdjson(std::string text, const std::u16string& product) {
    thread_local ondemand::parser parser;
    ondemand::document document = parser.iterate(text);
    return FileReader<Simdjson, T>(product).read(document.get_object());
}

template ResourceMap<RefItem> readWithSimdjson(std::string, const std::u16string&);
template ResourceMap<RefItemLookup> readWithSimdjson(std::string, const std::u16string&);

} // namespace reference::docparser::benchmarks
