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

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace reference::docparser {

/// What reference documentation the installed products provide: the library's one entrance.
///
/// Every operation may be called from any thread at any time, runs on its caller's thread and
/// keeps no reference to what it returns. Nothing is cached but what the settings below say: each
/// retrieval reads and parses its files anew, and their memory is given back when it returns. No
/// lock is held while files are read or parsed. Whatever needs memory may throw std::bad_alloc.
///
/// All texts are UTF-16. Folders are spelled as the system spells paths; they are joined as text,
/// and nothing is normalised.
///
/// A file that is missing, malformed or of another kind than a regular file contributes nothing
/// and hides nothing else. What is read, and what could not be, is written to the diagnostic
/// channel "referenceApi::docparser" (see platform/log/DiagnosticLogger.hpp).
class DOCPARSER_EXPORT DocResourceParser {
public:
    /// The folders that getReferenceRoots() returns.
    using ReferenceRoots = docparser::ReferenceRoots;

    /// Every full record of one product, in the current documentation language with English
    /// behind it.
    ///
    /// The product's files are looked for in the reference-API folder of the current roots and,
    /// when there is none that can be used, in the support-package folder: P.json, and P_L.json
    /// over it when the documentation language L is not "en". Where both have a section, the items
    /// of the language file replace the English items of the same href and its header replaces the
    /// English one.
    /// \param product  used in the file names as it stands; it is the caller's to trust
    /// \returns        the sections by key: the help folder of a file's main section, the base code
    ///                 of each section of its "supportPackages"; one section at least. The caller
    ///                 owns it all
    /// \throws DocParserException  neither place has a file of the product that could be used; the
    ///                             channel has a line at severity 512
    /// \throws whatever the language service or the support-package root reader throws
    static ResourceMap<property::RefItem> getResourceFile(const std::u16string& product);

    /// The lookup index of all products below the lookup folder of the current roots, in the
    /// current documentation language with English behind it.
    ///
    /// Zip packages are read before plain files; what collides is merged, the first one winning,
    /// except that a translation takes the place of what was there. Costs the reading of every file
    /// in the folder: an application that looks names up often keeps the result.
    /// \returns  the sections by key, split by isProductInstalled() of the key; empty maps when
    ///           there are no files
    /// \throws whatever the language service throws
    static ParsingResults<ResourceMap<property::RefItemLookup>> getResourceLookupFiles();

    /// The product files that lie directly in a folder: names that end in ".json" or ".zip", to
    /// the letter. Files of another language than the current one are left out.
    /// \param root                 the folder; missing or empty means no files
    /// \param localeSuffixes       what marks a translated file, as in "_de"
    /// \param currentLocaleSuffix  the mark of the translated files to keep
    /// \returns                    the files in the order of the folder, each with its stem as
    ///                             name; after a failure, which is never thrown, what was found
    ///                             before it
    static ProductLists getAllProducts(const std::u16string& root,
                                       const std::vector<std::u16string>& localeSuffixes,
                                       const std::u16string& currentLocaleSuffix);

    /// The installed products at the top level of the documentation, never null: the catalogue's,
    /// asked for at each call under a lock, or those of setTestProducts(). Hold the pointer while
    /// you walk the list.
    /// \throws whatever the catalogue throws
    static std::shared_ptr<const std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>>
    getTopLevelProducts();

    /// Whether a top-level product has this short name, to the byte of its UTF-8, or a hardware
    /// support package this name. Asks the catalogue at each call and goes through its products.
    /// \throws whatever the catalogue or the support-package root reader throws
    static bool isProductInstalled(const std::u16string& name);

    /// The installed hardware support packages, never null. Found once and kept until the caches
    /// are cleared; none when they could not be found.
    /// \throws whatever the support-package root reader throws
    static std::shared_ptr<const std::unordered_set<std::u16string>> getHardwareSupportPackages();

    /// The folder of the support packages' resource files, never null. Found once and kept until
    /// the caches are cleared: "help", "docCatalog" and "referenceapi" below the support-package
    /// root; or the folder of setSupportPackageRoot() as it stands. Takes no lock.
    /// \throws whatever the support-package root reader throws
    static std::shared_ptr<const std::u16string> getSupportPackageRoot();

    /// Lets products and support packages of these names count as installed, and no others, until
    /// restoreDefaultSettings(). clearSupportPackageCaches() and setSupportPackageRoot() undo it
    /// for the support packages alone. No reader sees it half done.
    static void setTestProducts(const std::vector<std::u16string>& topLevelNames,
                                const std::vector<std::u16string>& supportPackageNames);

    /// The roots in force, never null: a snapshot that later changes leave alone.
    static std::shared_ptr<const ReferenceRoots> getReferenceRoots();

    /// Makes another folder the reference root; it need not exist. Calls under way keep theirs.
    static void setReferenceRoot(std::u16string root);

    /// Makes `folder`, as it stands, the folder of the support packages' resource files, and
    /// forgets which hardware support packages are installed.
    static void setSupportPackageRoot(std::u16string folder);

    /// Back to the reference root of the installation, the products of the catalogue and empty
    /// support-package caches.
    static void restoreDefaultSettings();

    /// Forgets the support-package folder and the hardware support packages; both are found anew
    /// when they are next asked for.
    static void clearSupportPackageCaches();

    /// The constants of the file names, and what reads the values of a parsed resource file.
    class DOCPARSER_EXPORT ParsingTools {
    public:
        /// How the bytes of a string become UTF-16.
        using StringParsingType = docparser::StringParsingType;

        static const std::u16string kJsonExt;              ///< "json"
        static const std::u16string kDotJsonExt;           ///< ".json"
        static const std::u16string kZipExt;               ///< "zip"
        static const std::u16string kDotZipExt;            ///< ".zip"
        static const std::u16string kEnglishLocale;        ///< "en"
        static constexpr char16_t kLocaleSeparator = u'_'; ///< between a product and a language

        /// The current documentation language, just as the language service answers.
        /// \throws whatever the language service throws
        static std::u16string getCurrentLocale();

        /// The suffixes of the supported languages but "en", in the language service's order:
        /// "_ja", "_zh_CN".
        /// \throws whatever the language service throws
        static std::vector<std::u16string> getSupportedDocLocales();

        /// The text of the string under a required key.
        /// \param key  as the file has it, to the byte
        /// \throws std::exception  no such key, or no string
        static std::u16string getFluString(const boost::json::object& object,
                                           const std::string& key, StringParsingType type);

        /// The text of a JSON string.
        /// \throws std::exception  the value is no string
        static std::u16string getFluString(const boost::json::value& value, StringParsingType type);

        /// The text of the string under an optional key; empty when there is no such key.
        /// \throws std::exception  the value is no string
        static std::u16string getFluStringWithFallback(const boost::json::object& object,
                                                       const std::string& key,
                                                       StringParsingType type);

        /// The value as an array.
        /// \throws std::exception  it is none
        static const boost::json::array& getJsonArray(const boost::json::value& value);

        /// The array under a required key of an object.
        /// \throws std::exception  no object, no such key, or no array
        static const boost::json::array& getJsonArray(const boost::json::value& value,
                                                      const std::string& key);

        /// The header of a resource file or of one of its sections.
        /// \param section  the JSON object
        /// \param product  the name that the product was asked for by, copied into the header
        /// \throws std::exception  no object, a required key is missing, or a value is no string
        static property::HeaderInfo getHeaderInfo(const boost::json::value& section,
                                                  const std::u16string& product);
    };
};

} // namespace reference::docparser
