#pragma once

#include "docparser/Export.hpp"

#include <string_view>

namespace reference::property {

// The enumerations of the format, each a struct around its values. A value's number is its
// position in the format's list of words and never changes. All four have the operations that
// RefEntityType describes.

/// The type of an entity that a reference item documents.
struct DOCPARSER_EXPORT RefEntityType {
    /// In the order of the format.
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
        Component, ///< its inputs and properties may have non-ASCII names
        App,
        Module,
        Keyword
    };
    /// Returns the value of a word, "function" for Function. Words are lower case and match
    /// exactly.
    /// \throws std::invalid_argument  the word is unknown; what() contains it
    static Value stringToEnum(std::string_view word);
    /// Returns the value for an absent or unknown word.
    static Value getDefaultValue() noexcept { return Function; }
    /// Returns the word of a value; it stays valid until the process ends.
    /// \throws std::invalid_argument  `value` is not a value of the enumeration
    static std::string_view enumToString(Value value);
};

/// The type of a calling form.
struct DOCPARSER_EXPORT SyntaxType {
    /// In the order of the format.
    enum Value : int { Function, Command, Constructor, Operator };
    static Value stringToEnum(std::string_view word); ///< \copydoc RefEntityType::stringToEnum
    static Value getDefaultValue() noexcept { return Function; } ///< Returns Function.
    static std::string_view enumToString(Value value); ///< \copydoc RefEntityType::enumToString
};

/// Whether the use of an item is still recommended.
struct DOCPARSER_EXPORT DeprecationStatus {
    /// In the order of the format.
    enum Value : int { None, Discouraged, Deprecated, Removed };
    static Value stringToEnum(std::string_view word); ///< \copydoc RefEntityType::stringToEnum
    static Value getDefaultValue() noexcept { return None; } ///< Returns None.
    static std::string_view enumToString(Value value); ///< \copydoc RefEntityType::enumToString
};

/// The type of a function, for entities that are functions.
struct DOCPARSER_EXPORT FunctionType {
    /// In the order of the format.
    enum Value : int { Function, Method, Constructor, Static, Operator, Macro, Callback };
    static Value stringToEnum(std::string_view word); ///< \copydoc RefEntityType::stringToEnum
    static Value getDefaultValue() noexcept { return Function; } ///< Returns Function.
    static std::string_view enumToString(Value value); ///< \copydoc RefEntityType::enumToString
};

} // namespace reference::property
