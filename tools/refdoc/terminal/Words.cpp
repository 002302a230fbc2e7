#include "tools/refdoc/terminal/Words.hpp"

#include "platform/i18n/Converter.hpp"

#include <fmt/format.h>

#include <iterator>

namespace refdoc {

using reference::property::DeprecationStatus;
using reference::property::FunctionType;
using reference::property::RefEntityType;

std::u16string typeText(RefEntityType::Value entityType, FunctionType::Value functionType) {
    const std::string_view entity = RefEntityType::enumToString(entityType);
    const std::string_view function = FunctionType::enumToString(functionType);
    // "function" is also the default, for files that do not say.
    if (functionType == FunctionType::Function || function == entity)
        return fl::i18n::to_ustring(entity);
    return fl::i18n::to_ustring(fmt::format("{} {}", function, entity));
}

std::u16string pluralOf(const std::u16string& type) {
    if (type.ends_with(u's'))
        return type + u"es";
    if (type.ends_with(u'y'))
        return type.substr(0, type.size() - 1) + u"ies";
    return type + u's';
}

std::u16string_view meaningOf(DeprecationStatus::Value status) noexcept {
    switch (status) {
    case DeprecationStatus::None: break;
    case DeprecationStatus::Discouraged: return u"not recommended for new work";
    case DeprecationStatus::Deprecated: return u"to be removed in a later release";
    case DeprecationStatus::Removed: return u"no longer in the product";
    }
    return {};
}

std::string quoted(const std::u16string& text) {
    return fmt::format("\"{}\"", fl::i18n::to_string(text));
}

std::string alternatives(const std::vector<std::string>& names) {
    if (names.size() == 1)
        return names.front();
    return fmt::format("{} or {}", fmt::join(names.begin(), std::prev(names.end()), ", "),
                       names.back());
}

} // namespace refdoc
