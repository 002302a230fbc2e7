#include "benchmarks/peers/Peers.hpp"
#include "benchmarks/peers/SectionReader.hpp"

#include <nlohmann/json.hpp>

namespace reference::docparser::benchmarks {

namespace {

struct Nlohmann {
    using Value = const nlohmann::json*;
    using Object = const nlohmann::json::object_t*;

    static Object object(Value value) { return &value->get_ref<const nlohmann::json::object_t&>(); }
    static void restart(Object) {}
    static std::size_t count(Value value) { return value->size(); }
    static std::string_view text(Value value) { return value->get_ref<const std::string&>(); }

    template <class Visit>
    static void forEachMember(Object object, Visit visit) {
        for (const auto& [key, value] : *object)
            visit(key, &value);
    }

    template <class Visit>
    static void forEachElement(Value array, Visit visit) {
        for (const nlohmann::json& element : array->get_ref<const nlohmann::json::array_t&>())
            visit(&element);
    }
};

} // namespace

template <class T>
ResourceMap<T> readWithNlohmann(std::string text, const std::u16string& product) {
    const nlohmann::json document = nlohmann::json::parse(text);
    std::string().swap(text);
    return FileReader<Nlohmann, T>(product).read(Nlohmann::object(&document));
}

template ResourceMap<RefItem> readWithNlohmann(std::string, const std::u16string&);
template ResourceMap<RefItemLookup> readWithNlohmann(std::string, const std::u16string&);

} // namespace reference::docparser::benchmarks
