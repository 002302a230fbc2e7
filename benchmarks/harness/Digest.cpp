#include "benchmarks/harness/Digest.hpp"

#include <concepts>
#include <string>
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

    void add(const HeaderInfo& header) {
        addAll(header.getSchema(), header.getSchemaVersion(), header.getProductName(),
               header.getBaseCode(), header.getHelpFolder(), header.getHelpLocation(),
               header.getProduct());
    }

    void add(const RefItemLookup& item) {
        addAll(item.getName(), item.getEntityType(), item.getRefPurpose(), item.getDeprecated(),
               item.getHref(), item.getFunctionType());
    }

    void add(const RefItem& item) {
        addAll(item.getHref(), item.getRefEntities(), item.getPackageName(), item.getRefPurpose(),
               item.getIntroduced(), item.getDescription(), item.getAppThumbnail(),
               item.getDeprecationStatus(), item.getSyntaxGroups(), item.getInputs(),
               item.getInputGroups(), item.getOutputs(), item.getClassPropertyGroups(),
               item.getSeeAlso(), item.getExamples(), item.getParameters());
    }

    void add(const RefEntity& entity) {
        addAll(entity.getEntityType(), entity.getName(), entity.getFunctionType());
    }
    void add(const AppThumbnail& thumbnail) { addAll(thumbnail.getFileRef(), thumbnail.getAlt()); }
    void add(const SyntaxGroup& group) {
        addAll(group.getTitle(), group.getSyntaxType(), group.getSyntaxes());
    }
    void add(const ObjectInfo& info) {
        addAll(info.getName(), info.getPurpose(), info.getValues(), info.getHref());
    }
    void add(const Input& input) {
        addAll(input.getObjectInfo(), input.getSyntaxType(), input.getDefaultValue(),
               input.getIsNameValuePair());
    }
    void add(const InputGroup& group) { addAll(group.getTitle(), group.getInputs()); }
    void add(const Output& output) { addAll(output.getObjectInfo(), output.getSyntaxType()); }
    void add(const Parameter& parameter) {
        addAll(parameter.getObjectInfo(), parameter.getDefaultValue());
    }
    void add(const ClassProperty& property) {
        addAll(property.getObjectInfo(), property.getDefaultValue());
    }
    void add(const ClassPropertyGroup& group) { addAll(group.getTitle(), group.getProperties()); }
    void add(const SeeAlso& link) { addAll(link.getUrl(), link.getName()); }
    void add(const Example& example) {
        addAll(example.getUrl(), example.getOpenCommand(), example.getTitle());
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
