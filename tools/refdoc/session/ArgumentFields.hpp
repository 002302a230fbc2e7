#pragma once

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"

#include <string>

namespace refdoc {

// The fields that only some of the records Input, Output, Parameter and ClassProperty have. A
// record without the field yields an empty string or false.

template <class Argument>
std::u16string syntaxTypeOf(const Argument& argument) {
    if constexpr (requires { argument.getSyntaxType(); })
        return fl::i18n::to_ustring(
            reference::property::SyntaxType::enumToString(argument.getSyntaxType()));
    else
        return {};
}

template <class Argument>
std::u16string defaultOf(const Argument& argument) {
    if constexpr (requires { argument.getDefaultValue(); })
        return argument.getDefaultValue();
    else
        return {};
}

template <class Argument>
bool isNameValuePair(const Argument& argument) {
    if constexpr (requires { argument.getIsNameValuePair(); })
        return argument.getIsNameValuePair();
    else
        return false;
}

} // namespace refdoc
