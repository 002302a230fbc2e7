/// \file
/// The C interface: the records of a product, the lookup index and the load account as JSON, for
/// programs in C and for other languages that can call C functions.
///
///     char* records = NULL;
///     if (docparser_set_install_folder("samples") == DOCPARSER_OK &&
///         docparser_set_language("de", NULL, 0) == DOCPARSER_OK &&
///         docparser_get_product("Orchard", &records, NULL) == DOCPARSER_OK)
///         puts(records);
///     else
///         fprintf(stderr, "%s\n", docparser_last_error());
///     docparser_free(records);
///
/// **Strings** are UTF-8 and end with NUL. A function copies the strings that it takes. Paths use
/// the notation of the system. JSON is compact and is described by the JSON Schemas that are
/// installed with the library. Strings that a function returns through a `char**` belong to the
/// caller, who frees them with docparser_free().
///
/// **Settings** apply to the whole process. They are those of the C++ class DocResourceParser, so
/// parts of a program that are written in C and C++ see the same settings. A call that fails
/// changes no setting.
///
/// **Threads**: every function may be called from any thread at any time, and runs on the thread of
/// its caller. No lock is held while resource files are read. A call that runs while another thread
/// changes settings may use both old and new ones; a program that needs certain settings for a call
/// must serialise its calls. A cancellation of the thread ends these functions without a leak.
///
/// **Failures** are returned as docparser_status; no C++ exception leaves a function. Pointers to
/// results are set to null if a call fails, unless the function says otherwise.
///
/// **Compatibility**: the shared library has a version of its own, in its file name and in its
/// symbols. Later versions add functions and values of docparser_status, and schemas may get new
/// members; nothing else changes. Since version 1.1.

#pragma once

#include "docparser/c/Export.h"

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/// How a call ended.
typedef enum docparser_status {
    DOCPARSER_OK = 0,
    DOCPARSER_INVALID_ARGUMENT = 1, ///< a required pointer is null, or a string is ill-formed UTF-8
    DOCPARSER_NOT_FOUND = 2,        ///< no folder has a usable resource file of the product
    DOCPARSER_FAILED = 3,           ///< any other failure, such as a malformed installation.json
    DOCPARSER_OUT_OF_MEMORY = 4     ///< an allocation failed
} docparser_status;

/// Returns the version of this library, such as "1.1.0". The string is never freed.
DOCPARSER_C_EXPORT const char* docparser_version(void);

/// Returns why the last call of the current thread failed, as one sentence for developers; empty if
/// it succeeded. Never null. The string is valid until the thread calls a function that returns a
/// docparser_status, or ends. It has at most 2047 bytes; a longer reason is cut.
DOCPARSER_C_EXPORT const char* docparser_last_error(void);

/// Selects an installation: reads `installation.json` in a folder, makes the folder `help` below it
/// the reference root, and drops the root, support folder and languages that were set before. A
/// folder without `installation.json` has only English documentation, and nothing is installed.
///
/// Before the first call, the installation is that of the library. If a part of the program in C++
/// has set host services before it uses this interface, they are the installation.
/// \param folder  null for the folder that the library is installed in
/// \returns  DOCPARSER_FAILED if `installation.json` is malformed or cannot be read
DOCPARSER_C_EXPORT docparser_status docparser_set_install_folder(const char* folder);

/// Sets the reference root: the folder that contains `docCatalog`. It need not exist.
/// \param folder  null for the folder `help` of the installation
DOCPARSER_C_EXPORT docparser_status docparser_set_root(const char* folder);

/// Sets the folder of the resource files of support packages, which are read if the reference root
/// has no file of a product. It need not exist.
/// \param folder  null for the folder below the support-package root of the installation
DOCPARSER_C_EXPORT docparser_status docparser_set_support_folder(const char* folder);

/// Sets the documentation language and the supported languages, spelled as in the names of files:
/// "de", "zh_CN". Each call replaces both settings of the call before.
/// \param current          null for the language of the installation; added to the supported
///                         languages if it is not among them
/// \param supported        null for the supported languages of the installation; no element may be
///                         null
/// \param supported_count  the number of elements; ignored if `supported` is null
DOCPARSER_C_EXPORT docparser_status docparser_set_language(const char* current,
                                                           const char* const* supported,
                                                           size_t supported_count);

/// Reads every full record of one product, in the current language with English as the fallback.
/// Cost: linear in the size of the product's files.
/// \param product  the name of the file without ".json", such as "Orchard"; for a section of the
///                 lookup index, the member "product" of its header
/// \param records  receives the document that `refdoc --json show` prints: "show" in
///                 refdoc-output.schema.json
/// \param account  receives what became of each file that was considered, as described by
///                 docparser-account.schema.json, also if the status is DOCPARSER_NOT_FOUND; may be
///                 null, in which case nothing is recorded
/// \returns  DOCPARSER_NOT_FOUND if no file of the product can be used
DOCPARSER_C_EXPORT docparser_status docparser_get_product(const char* product, char** records,
                                                          char** account);

/// Reads the lookup index of all products, in the current language with English as the fallback.
/// The index is empty if there are no lookup files. Cost: linear in the size of all lookup files,
/// which are read on each call, so a program that looks up names often should keep the result.
/// \param index    receives the document that `refdoc --json lookup` prints: "lookup" in
///                 refdoc-output.schema.json
/// \param account  as in docparser_get_product()
DOCPARSER_C_EXPORT docparser_status docparser_get_index(char** index, char** account);

/// Frees a string that a function of this interface has returned through a `char**`. Null is
/// allowed. Does not change the last error.
DOCPARSER_C_EXPORT void docparser_free(char* text);

#ifdef __cplusplus
}
#endif
