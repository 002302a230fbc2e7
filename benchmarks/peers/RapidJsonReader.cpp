#include "benchmarks/peers/FileReader.hpp"
#include "benchmarks/peers/Peers.hpp"

#ifdef __SSE2__
#define RAPIDJSON_SSE2
#endif
#include <rapidjson/document.h>

namespace reference::docparser::benchmarks {

namespace {

void check(bool isType) {
    if (!isType)
        throw std::runtime_error("a value of the wrong type");
}

struct Value {
    const rapidjson::Value* json;

    std::string_view string() const {
        check(json->IsString());
        return {json->GetString(), json->GetStringLength()};
    }
    std::size_t count() const { return json->IsArray() ? json->Size() : 0; }

    template <class Visit>
    void forEachElement(Visit visit) const {
        check(json->IsArray());
        for (const rapidjson::Value& element : json->GetArray())
            visit(Value{&element});
    }

    Value object() const {
        check(json->IsObject());
        return *this;
    }
    void restart() const {}

    template <class Visit>
    void forEachMember(Visit visit) const {
        for (const auto& member : json->GetObject())
            visit(Value{&member.name}.string(), Value{&member.value});
    }
};

} // namespace

template <class T>
ResourceMap<T> readWithRapidJson(std::string text, const std::u16string& product) {
    rapidjson::Document document;
    document.ParseInsitu(text.data());
    check(!document.HasParseError());
    return readFile<T>(Value{&document}.object(), product);
}

template ResourceMap<RefItem> readWithRapidJson(std::string, const std::u16string&);
template ResourceMap<RefItemLookup> readWithRapidJson(std::string, const std::u16string&);

} // namespace reference::docparser::benchmarks
