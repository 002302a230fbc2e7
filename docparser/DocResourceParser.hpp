#pragma once

#include "docparser/Export.hpp"
#include "docparser/ReferenceRoots.hpp"
#include "docparser/discovery/ProductLists.hpp"
#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/parsing/RefItemLookup.hpp"
#include "docparser/parsing/StringParsingType.hpp"
#include "docparser/retrieval/ParsingResults.hpp"
#include "platform/docproduct/TopLevelDocProduct.hpp"

#include <boost/json/fwd.hpp>
#include <boost/version.hpp>

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace reference::docparser {

// Callers pass JSON values to the library, so both must agree on their layout.
static_assert(BOOST_VERSION / 100 == DOCPARSER_BOOST_VERSION / 100,
              "docparser was built with another release of Boost");

/// Reads the reference documentation of products. This class is the library's public interface.
///
/// Every operation may be called from any thread at any time, runs on its caller's thread and
/// keeps no reference to its result. Apart from the settings below, nothing is cached: each
/// retrieval reads and parses its files anew and releases their memory when it returns. No lock is
/// held while files are read or parsed. Operations that allocate may throw std::bad_alloc.
///
/// All strings are UTF-16. Paths use the notation of the system. They are joined as strings and
/// never normalised.
///
/// A file that is missing, malformed or not a regular file is skipped and never hides another file.
/// The diagnostic channel "referenceApi::docparser" (see platform/log/DiagnosticLogger.hpp) reports
/// each file before it is read, and each file that could not be read. To find out what became of
/// each file, see docparser/account/LoadAccount.hpp.
class DOCPARSER_EXPORT DocResourceParser {
public:
    /// The folders that getReferenceRoots() returns.
    using ReferenceRoots = docparser::ReferenceRoots;

    /// Returns every full record of one product, in the current documentation language with
    /// English as the fallback.
    ///
    /// The files are looked up in the reference-API folder of the current roots and, if none of
    /// them can be used, in the support-package folder: P.json, overlaid with P_L.json if the
    /// documentation language L is not "en". If both have a section, the language file's items
    /// replace the English items of the same href, and its header replaces the English one.
    /// \param product  the name of the file, such as "Orchard"; used as it is, so the caller must
    ///                 validate it. For a section of the lookup index, `header.getProduct()`
    ///                 returns it; neither the section key nor a short name is one.
    /// \returns        at least one section, keyed by the help folder of a file's main section and
    ///                 by the base code of each section of its "supportPackages"
    /// \throws DocParserException  neither folder has a usable file of the product; the channel has
    ///                             a line at severity 512
    /// \throws whatever the language service or the support-package root reader throws
    static ResourceMap<property::RefItem> getResourceFile(const std::u16string& product);

    /// Returns the lookup index of all products in the lookup folder of the current roots, in the
    /// current documentation language with English as the fallback.
    ///
    /// Zip packages are read before plain files. Sections with the same key are merged. The first
    /// one takes precedence, except that a translation takes precedence over the sections before
    /// it. Every file in the folder is read on each call, so an application that looks up names
    /// often should keep the result.
    ///
    /// The full record of an entry is in getResourceFile() of the product that
    /// `section.header.getProduct()` returns, under the entry's href; see docparser/Queries.hpp.
    /// If the check of a section's key throws, that section and the rest of its file are left out
    /// without an exception or a log line. Only a LoadAccount shows it, as Fate::Failed.
    /// \returns  the sections by key, split by isProductInstalled() of the key; empty maps if there
    ///           are no files
    /// \throws whatever the language service throws
    static ParsingResults<ResourceMap<property::RefItemLookup>> getResourceLookupFiles();

    /// Returns the product files directly in a folder: those whose names end in exactly ".json" or
    /// ".zip". Translations into languages other than the current one are left out.
    /// \param root                 the folder; missing or empty means no files
    /// \param localeSuffixes       the suffixes that mark a translated file, such as "_de"
    /// \param currentLocaleSuffix  the suffix of the translated files to keep
    /// \returns                    the files in the order of the folder, each with its stem as
    ///                             name; after a failure, which is never thrown, the files found
    ///                             before it
    static ProductLists getAllProducts(const std::u16string& root,
                                       const std::vector<std::u16string>& localeSuffixes,
                                       const std::u16string& currentLocaleSuffix);

    /// Returns the installed top-level products, never null: those of setTestProducts(), or else
    /// those of the catalogue, which is queried on each call under a lock. Keep the pointer while
    /// you iterate.
    /// \throws whatever the catalogue throws
    static std::shared_ptr<const std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>>
    getTopLevelProducts();

    /// Returns whether a top-level product has this short name, compared as UTF-8 bytes, or a
    /// hardware support package has this name. Queries the catalogue on each call. Cost: linear in
    /// the number of products.
    /// \throws whatever the catalogue or the support-package root reader throws
    static bool isProductInstalled(const std::u16string& name);

    /// Returns the installed hardware support packages, never null. The result is cached until the
    /// caches are cleared. If the query fails, the set is empty.
    /// \throws whatever the support-package root reader throws
    static std::shared_ptr<const std::unordered_set<std::u16string>> getHardwareSupportPackages();

    /// Returns the folder of the support packages' resource files, never null: "help", "docCatalog"
    /// and "referenceapi" below the support-package root, or the folder of setSupportPackageRoot()
    /// unchanged. The result is cached until the caches are cleared. Takes no lock.
    /// \throws whatever the support-package root reader throws
    static std::shared_ptr<const std::u16string> getSupportPackageRoot();

    /// Makes exactly these products and support packages count as installed until
    /// restoreDefaultSettings() is called. clearSupportPackageCaches() and setSupportPackageRoot()
    /// undo it for the support packages only. Other threads see both changes or none.
    static void setTestProducts(const std::vector<std::u16string>& topLevelNames,
                                const std::vector<std::u16string>& supportPackageNames);

    /// Returns the current roots, never null: a snapshot that later changes do not affect.
    static std::shared_ptr<const ReferenceRoots> getReferenceRoots();

    /// Sets the reference root, which need not exist. Calls in progress keep the old one.
    static void setReferenceRoot(std::u16string root);

    /// Sets the folder of the support packages' resource files, to be used as it is, and clears the
    /// cached hardware support packages.
    static void setSupportPackageRoot(std::u16string folder);

    /// Restores the reference root of the installation and the products of the catalogue, and
    /// clears both support-package caches.
    static void restoreDefaultSettings();

    /// Clears the cached support-package folder and hardware support packages; both are determined
    /// again when they are next needed.
    static void clearSupportPackageCaches();

    /// Constants of file names, and access to the values of a parsed resource file.
    class DOCPARSER_EXPORT ParsingTools {
    public:
        /// How the bytes of a JSON string are converted to UTF-16.
        using StringParsingType = docparser::StringParsingType;

        static const std::u16string kJsonExt;              ///< "json"
        static const std::u16string kDotJsonExt;           ///< ".json"
        static const std::u16string kZipExt;               ///< "zip"
        static const std::u16string kDotZipExt;            ///< ".zip"
        static const std::u16string kEnglishLocale;        ///< "en"
        static constexpr char16_t kLocaleSeparator = u'_'; ///< between a product and a language

        /// Returns the current documentation language exactly as the language service reports it.
        /// \throws whatever the language service throws
        static std::u16string getCurrentLocale();

        /// Returns the suffixes of the supported languages except "en", in the service's order:
        /// "_ja", "_zh_CN".
        /// \throws whatever the language service throws
        static std::vector<std::u16string> getSupportedDocLocales();

        /// Returns the string of a required key.
        /// \param key  UTF-8, exactly as in the file
        /// \throws std::exception  the key is missing, or its value is not a string
        static std::u16string getFluString(const boost::json::object& object,
                                           const std::string& key, StringParsingType type);

        /// Returns a JSON string.
        /// \throws std::exception  the value is not a string
        static std::u16string getFluString(const boost::json::value& value, StringParsingType type);

        /// Returns the string of an optional key; empty if the key is missing.
        /// \throws std::exception  the value is not a string
        static std::u16string getFluStringWithFallback(const boost::json::object& object,
                                                       const std::string& key,
                                                       StringParsingType type);

        /// Returns the value as an array.
        /// \throws std::exception  the value is not an array
        static const boost::json::array& getJsonArray(const boost::json::value& value);

        /// Returns the array of a required key of an object.
        /// \throws std::exception  not an object, a missing key, or not an array
        static const boost::json::array& getJsonArray(const boost::json::value& value,
                                                      const std::string& key);

        /// Reads the header of a resource file or of one of its sections.
        /// \param section  the JSON object
        /// \param product  the name that the product was requested by, copied into the header
        /// \throws std::exception  not an object, a missing key, or a value that is not a string
        static property::HeaderInfo getHeaderInfo(const boost::json::value& section,
                                                  const std::u16string& product);
    };
};

} // namespace reference::docparser
