#include "benchmarks/peers/FileReader.hpp"
#include "benchmarks/peers/Peers.hpp"

#include <nlohmann/json.hpp>

namespace reference::docparser::benchmarks {

namespace {

struct Value {
    const nlohmann::json* json;

    std::string_view string() const { return json->get_ref<const std::string&>(); }
    std::size_t count() const { return json->size(); }

    template <class Visit>
    void forEachElement(Visit visit) const {
        for (const nlohmann::json& element : json->get_ref<const nlohmann::json::array_t&>())
            visit(Value{&element});
    }

    Value object() const { return *this; }
    void restart() const {}

    template <class Visit>
    void forEachMember(Visit visit) const {
        for (const auto& [key, value] : json->get_ref<const nlohmann::json::object_t&>())
            visit(key, Value{&value});
    }
};

} // namespace

template <class T>
ResourceMap<T> readWithNlohmann(std::string text, const std::u16string& product) {
    const nlohmann::json document = nlohmann::json::parse(text);
    std::string().swap(text);
    return readFile<T>(Value{&document}, product);
}

template ResourceMap<RefItem> readWithNlohmann(std::string, const std::u16string&);
template ResourceMap<RefItemLookup> readWithNlohmann(std::string, const std::u16string&);

} // namespace reference::docparser::benchmarks
