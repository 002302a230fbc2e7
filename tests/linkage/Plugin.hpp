#pragma once

/// The functions of a plug-in that uses the library, for a program that is not linked with it.
/// Strings are UTF-8.
namespace docparser_tests::plugin {

/// Requests a product that does not exist and lets the exception propagate.
extern "C" void throwForAbsentProduct();
using ThrowForAbsentProduct = decltype(throwForAbsentProduct);

/// The types that `catchAs` has handlers for.
enum class CaughtAs {
    DocParserException,
    IInternalException,
    IException,
    BoostException,
    CloneBase
};

/// Calls a function and catches exceptions of the given type. Returns whether it caught one with
/// the name of the absent product. Other exceptions propagate.
extern "C" bool catchAs(CaughtAs type, void (*function)());
using CatchAs = decltype(catchAs);

/// Returns the number of sections of the product "Orchard", 0 if it is not found. Sets the
/// reference root to `root` unless that is null.
extern "C" unsigned long countSections(const char* root);
using CountSections = decltype(countSections);

} // namespace docparser_tests::plugin
