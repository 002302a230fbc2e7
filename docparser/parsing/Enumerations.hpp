#pragma once

#include "docparser/Export.hpp"

#include <string_view>

namespace reference::property {

// Each enumeration is a struct around its values, with the words that the files use for them. The
// numbers are in the order of the words and stay as they are.

/// What kind of thing a reference item documents.
struct DOCPARSER_EXPORT RefEntityType {
    /// One for each word, in the order of the format.
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
    /// The value of a word, which is matched exactly, lower case.
    /// \throws std::invalid_argument  any other text; what() names it
    static Value stringToEnum(std::string_view word);
    /// The value of what has no word, or one that is not known.
    static Value getDefaultValue() noexcept { return Function; }
    /// The word of a value; it lives as long as the process.
    /// \throws std::invalid_argument  the number is no value
    static std::string_view enumToString(Value value);
};

/// In which form a syntax is called.
struct DOCPARSER_EXPORT SyntaxType {
    /// One for each word, in the order of the format.
    enum Value : int { Function, Command, Constructor, Operator };
    /// The value of a word, which is matched exactly, lower case.
    /// \throws std::invalid_argument  any other text; what() names it
    static Value stringToEnum(std::string_view word);
    /// The value of what has no word, or one that is not known.
    static Value getDefaultValue() noexcept { return Function; }
    /// The word of a value; it lives as long as the process.
    /// \throws std::invalid_argument  the number is no value
    static std::string_view enumToString(Value value);
};

/// How far an item is on its way out of the product.
struct DOCPARSER_EXPORT DeprecationStatus {
    /// One for each word, in the order of the format.
    enum Value : int { None, Discouraged, Deprecated, Removed };
    /// The value of a word, which is matched exactly, lower case.
    /// \throws std::invalid_argument  any other text; what() names it
    static Value stringToEnum(std::string_view word);
    /// The value of what has no word, or one that is not known.
    static Value getDefaultValue() noexcept { return None; }
    /// The word of a value; it lives as long as the process.
    /// \throws std::invalid_argument  the number is no value
    static std::string_view enumToString(Value value);
};

/// What kind of function an entity is, where it is one.
struct DOCPARSER_EXPORT FunctionType {
    /// One for each word, in the order of the format.
    enum Value : int { Function, Method, Constructor, Static, Operator, Macro, Callback };
    /// The value of a word, which is matched exactly, lower case.
    /// \throws std::invalid_argument  any other text; what() names it
    static Value stringToEnum(std::string_view word);
    /// The value of what has no word, or one that is not known.
    static Value getDefaultValue() noexcept { return Function; }
    /// The word of a value; it lives as long as the process.
    /// \throws std::invalid_argument  the number is no value
    static std::string_view enumToString(Value value);
};

} // namespace reference::property
