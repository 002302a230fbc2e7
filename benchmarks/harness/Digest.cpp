#include "benchmarks/harness/Digest.hpp"

#include "tools/refdoc/json/RecordFields.hpp"

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace reference::docparser::benchmarks {

using namespace property;

namespace {

// FNV-1a over numbers; every text and list goes in with its length in front.
class Hasher {
public:
    template <class... Fields>
    void addAll(const Fields&... fields) {
        (add(fields), ...);
    }

    std::uint64_t value() const noexcept { return value_; }

private:
    template <class Number>
    requires(std::integral<Number> || std::is_enum_v<Number>) void add(Number number) {
        value_ = (value_ ^ static_cast<std::uint64_t>(number)) * 0x100000001B3U;
    }

    void add(const std::u16string& text) {
        add(text.size());
        for (const char16_t unit : text)
            add(unit);
    }

    template <class T>
    void add(const std::vector<T>& list) {
        add(list.size());
        for (const T& element : list)
            add(element);
    }

    template <class Value>
    void add(const std::map<std::u16string, Value>& map) {
        add(map.size());
        for (const auto& [key, value] : map)
            addAll(key, value);
    }

    template <class T>
    void add(const DocResource<T>& resource) {
        addAll(resource.header, resource.items);
    }

    template <class Record>
    requires(std::is_class_v<Record>) void add(const Record& record) {
        refdoc::visitFields(record,
                            [this](std::string_view, const auto& field) { this->add(field); });
    }

    std::uint64_t value_ = 0xCBF29CE484222325U;
};

template <class... Fields>
std::uint64_t hashOf(const Fields&... fields) {
    Hasher hasher;
    hasher.addAll(fields...);
    return hasher.value();
}

} // namespace

std::uint64_t digest(const ResourceMap<RefItem>& resources) {
    return hashOf(resources);
}

std::uint64_t digest(const ResourceMap<RefItemLookup>& resources) {
    return hashOf(resources);
}

std::uint64_t digest(const LookupResults& results) {
    return hashOf(results.installed, results.notInstalled);
}

} // namespace reference::docparser::benchmarks
