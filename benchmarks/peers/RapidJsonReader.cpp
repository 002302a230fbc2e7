#include "benchmarks/peers/Peers.hpp"
#include "benchmarks/peers/SectionReader.hpp"

#ifdef __SSE2__
#define RAPIDJSON_SSE2
#endif
#include <rapidjson/document.h>

namespace reference::docparser::benchmarks {

namespace {

void check(bool isKind) {
    if (!isKind)
        throw std::runtime_error("a value of the wrong kind");
}

struct RapidJson {
    using Value = const rapidjson::Value*;
    using Object = const rapidjson::Value*;

    static Object object(Value value) {
        check(value->IsObject());
        return value;
    }
    static void restart(Object) {}
    static std::size_t count(Value value) { return value->IsArray() ? value->Size() : 0; }
    static std::string_view text(Value value) {
        check(value->IsString());
        return {value->GetString(), value->GetStringLength()};
    }

    template <class Visit>
    static void forEachMember(Object object, Visit visit) {
        for (const auto& member : object->GetObject())
            visit(text(&member.name), &member.value);
    }

    template <class Visit>
    static void forEachElement(Value array, Visit visit) {
        check(array->IsArray());
        for (const rapidjson::Value& element : array->GetArray())
            visit(&element);
    }
};

} // namespace

template <class T>
ResourceMap<T> readWithRapidJson(std::string text, const std::u16string& product) {
    rapidjson::Document document;
    document.ParseInsitu(text.data());
    check(!document.HasParseError());
    return FileReader<RapidJson, T>(product).read(RapidJson::object(&document));
}

template ResourceMap<RefItem> readWithRapidJson(std::string, const std::u16string&);
template ResourceMap<RefItemLookup> readWithRapidJson(std::string, const std::u16string&);

} // namespace reference::docparser::benchmarks
