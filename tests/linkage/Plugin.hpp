#pragma once

/// What a plug-in that uses the library offers to a program that does not know it. Texts are UTF-8.
namespace docparser_tests::plugin {

/// Asks the library for a product that does not exist, and lets the exception out.
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

/// Calls a function and tells whether a handler of the type gets what it throws, with the name of
/// the absent product in it. Whatever else it throws passes out.
extern "C" bool catchAs(CaughtAs type, void (*function)());
using CatchAs = decltype(catchAs);

/// How many sections the product "Orchard" has below a reference root; 0 when it is not found.
/// Changes no setting when `root` is null.
extern "C" unsigned long countSections(const char* root);
using CountSections = decltype(countSections);

} // namespace docparser_tests::plugin
