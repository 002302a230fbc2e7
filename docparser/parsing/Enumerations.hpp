#pragma once

#include "docparser/Export.hpp"

#include <string_view>

namespace reference::property {

// Each enumeration is a struct around its values, with the words that the files use for them:
//
//   stringToEnum(word)   the value of a word, which is matched exactly, lower case;
//                        throws std::invalid_argument, naming the word, for any other
//   getDefaultValue()    the value of an item that has no word or an unknown one
//   enumToString(value)  the word of a value; throws std::invalid_argument for a number that is
//                        no value

/// What kind of thing a reference item documents.
struct DOCPARSER_EXPORT RefEntityType {
    enum Value : int {
        Function,
        Class,
        Method,
        Property,
        Event,
        Enumeration,
        Namespace,
        Interface,
        Type,
        Constant,
        Operator,
        Command,
        Component, ///< its inputs and properties may have names beyond ASCII
        App,
        Module,
        Keyword
    };
    static Value stringToEnum(std::string_view word);
    static Value getDefaultValue() noexcept { return Function; }
    static std::string_view enumToString(Value value);
};

/// In which form a syntax is called.
struct DOCPARSER_EXPORT SyntaxType {
    enum Value : int { Function, Command, Constructor, Operator };
    static Value stringToEnum(std::string_view word);
    static Value getDefaultValue() noexcept { return Function; }
    static std::string_view enumToString(Value value);
};

/// How far an item is on its way out of the product.
struct DOCPARSER_EXPORT DeprecationStatus {
    enum Value : int { None, Discouraged, Deprecated, Removed };
    static Value stringToEnum(std::string_view word);
    static Value getDefaultValue() noexcept { return None; }
    static std::string_view enumToString(Value value);
};

/// What kind of function an entity is, where it is one.
struct DOCPARSER_EXPORT FunctionType {
    enum Value : int { Function, Method, Constructor, Static, Operator, Macro, Callback };
    static Value stringToEnum(std::string_view word);
    static Value getDefaultValue() noexcept { return Function; }
    static std::string_view enumToString(Value value);
};

} // namespace reference::property
