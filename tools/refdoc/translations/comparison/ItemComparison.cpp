#include "docparser/json/RecordFields.hpp"
#include "tools/refdoc/translations/comparison/Comparisons.hpp"
#include "tools/refdoc/translations/comparison/SideComparison.hpp"

#include <algorithm>
#include <cstddef>
#include <type_traits>

namespace refdoc::translations {

using namespace reference::property;
using reference::docparser::ResourceMap;
using reference::json::kFields;
using reference::json::visitFields;

namespace {

using Items = std::vector<RefItem>; // those with one href, usually one
using Texts = std::vector<std::u16string_view>;

// Whether a field is written for readers, so that translations have another string.
bool isText(std::string_view field) {
    return field == "refPurpose" || field == "description" || field == "alt" || field == "title" ||
           field == "purpose";
}

// Collects the texts of a record and of its parts that are not empty.
class TextCollector {
public:
    template <class T>
    void add(const std::vector<T>& records) {
        for (const T& record : records)
            add(record);
    }

    template <class T>
    void add(const T& record) {
        if constexpr (!std::is_same_v<decltype(kFields<T>), const std::nullptr_t>)
            visitFields(record, [this](std::string_view field, const auto& value) {
                if constexpr (std::is_same_v<decltype(value), const std::u16string&>)
                    addText(field, value);
                else
                    add(value);
            });
    }

    Texts take() { return std::move(texts_); }

private:
    void addText(std::string_view field, const std::u16string& text) {
        if (!text.empty() && isText(field))
            texts_.push_back(text);
    }

    Texts texts_;
};

Texts textsOf(const Items& items) {
    TextCollector collector;
    collector.add(items);
    return collector.take();
}

template <class T>
bool areSame(const std::vector<T>& english, const std::vector<T>& translation);

bool hasSameName(const ObjectInfo& english, const ObjectInfo& translation) {
    return english.getName() == translation.getName();
}

bool isSame(const Input& english, const Input& translation) {
    return hasSameName(english.getObjectInfo(), translation.getObjectInfo()) &&
           english.getSyntaxType() == translation.getSyntaxType() &&
           english.getIsNameValuePair() == translation.getIsNameValuePair();
}

bool isSame(const InputGroup& english, const InputGroup& translation) {
    return areSame(english.getInputs(), translation.getInputs());
}

bool isSame(const Output& english, const Output& translation) {
    return hasSameName(english.getObjectInfo(), translation.getObjectInfo()) &&
           english.getSyntaxType() == translation.getSyntaxType();
}

bool isSame(const Parameter& english, const Parameter& translation) {
    return hasSameName(english.getObjectInfo(), translation.getObjectInfo());
}

bool isSame(const ClassProperty& english, const ClassProperty& translation) {
    return hasSameName(english.getObjectInfo(), translation.getObjectInfo());
}

bool isSame(const ClassPropertyGroup& english, const ClassPropertyGroup& translation) {
    return areSame(english.getProperties(), translation.getProperties());
}

bool isSame(const SyntaxGroup& english, const SyntaxGroup& translation) {
    return english.getSyntaxType() == translation.getSyntaxType() &&
           english.getSyntaxes() == translation.getSyntaxes();
}

template <class T>
bool areSame(const std::vector<T>& english, const std::vector<T>& translation) {
    return std::ranges::equal(english, translation,
                              [](const T& left, const T& right) { return isSame(left, right); });
}

// Stands for the item that the other language has more.
const RefItem& emptyItem() {
    static const RefItem item({}, {}, {}, {}, {}, {}, {{}, {}}, {}, {}, {}, {}, {}, {}, {}, {}, {});
    return item;
}

// Whether the items have the same parts. \param get  returns the parts of one item
template <class Parts>
bool haveSame(const Items& english, const Items& translation,
              const Parts& (RefItem::*get)() const noexcept) {
    const auto parts = [&](const Items& items, std::size_t index) -> const Parts& {
        return ((index < items.size() ? items[index] : emptyItem()).*get)();
    };
    for (std::size_t index = 0; index < std::max(english.size(), translation.size()); ++index) {
        if (!areSame(parts(english, index), parts(translation, index)))
            return false;
    }
    return true;
}

struct ItemRules {
    Label labelOf(const Items& items) const {
        Label label;
        for (const RefItem& item : items) {
            for (const RefEntity& entity : item.getRefEntities())
                label += entity.getName() + u'\n';
        }
        return label;
    }

    bool isIdentical(const Items& english, const Items& translation) const {
        Texts texts = textsOf(english);
        if (texts.empty())
            return false;
        std::ranges::sort(texts);
        return std::ranges::all_of(textsOf(translation), [&](std::u16string_view text) {
            return std::ranges::binary_search(texts, text);
        });
    }

    std::vector<std::string_view> differences(const Items& english,
                                              const Items& translation) const {
        std::vector<std::string_view> fields;
        const auto compare = [&](std::string_view field, auto get) {
            if (!haveSame(english, translation, get))
                fields.push_back(field);
        };
        compare("syntaxGroups", &RefItem::getSyntaxGroups);
        compare("inputs", &RefItem::getInputs);
        compare("inputGroups", &RefItem::getInputGroups);
        compare("outputs", &RefItem::getOutputs);
        compare("classPropertyGroups", &RefItem::getClassPropertyGroups);
        compare("parameters", &RefItem::getParameters);
        return fields;
    }
};

std::map<Key, const Items*> sideOf(const ResourceMap<RefItem>& sections) {
    std::map<Key, const Items*> side;
    for (const auto& [section, resource] : sections) {
        for (const auto& [href, items] : resource.items)
            side.emplace_hint(side.end(), Key{.section = section, .href = href}, &items);
    }
    return side;
}

} // namespace

Comparison compareItems(const ResourceMap<RefItem>& english,
                        const ResourceMap<RefItem>& translation) {
    return compareSides(sideOf(english), sideOf(translation), ItemRules());
}

} // namespace refdoc::translations
