#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "platform/HostServices.hpp"
#include "tools/refdoc/check/TemporaryRoot.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/diff/DamageList.hpp"
#include "tools/refdoc/diff/compare/ProductComparison.hpp"
#include "tools/refdoc/session/LookupIndex.hpp"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace refdoc::diff {

/// A single resource file or package to compare.
struct SingleFile {
    std::filesystem::path path{}; ///< absolute; empty if this side has no file
    std::filesystem::path name{}; ///< the file name that the library sees
    check::TemporaryRoot::Folder folder{};
    std::string shownPath{}; ///< in messages
};

/// A product as it was read.
struct ReadProduct {
    ProductRecords records{};
    std::vector<Damage> damages{};
};

/// One side of a comparison: a reference root, an install folder or a single file.
///
/// The settings of the library are global, so only one tree at a time is selected. Constructors and
/// load() select their tree. read() is for the selected one, and may be called on several threads.
class Tree {
public:
    /// Chooses the settings for a folder. The manifest of an install folder, or the nearest one
    /// above a reference root, determines the languages. A reference root has no support packages,
    /// unless the options name their folder.
    /// \param folder  absolute
    /// \throws std::exception  it is neither a reference root nor an install folder, or its
    ///                         manifest is malformed
    Tree(const std::filesystem::path& folder, const Options& options);

    /// Chooses the settings for a file. A resource file is read as English, whatever its name; the
    /// languages of the options are for the entries of a package.
    Tree(const SingleFile& file, const Options& options);

    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    /// The language of the records.
    std::u16string language() const { return services_->docLanguage(); }

    /// The supported languages, which tell translations from products.
    std::vector<std::u16string> languages() const { return services_->supportedDocLanguages(); }

    /// Sets the language of the records and the supported languages.
    void setLanguages(const std::u16string& language, const std::vector<std::u16string>& supported);

    /// Reads the names of the products and the lookup index, which is required before the tree is
    /// compared.
    void load();

    /// Makes two loaded trees agree on
    ///
    /// - the product of each section of the lookup index that both have: the library names the one
    ///   whose file it read first, which may differ if files of several products have the section
    /// - the products whose entries may be missing because a lookup file or package is damaged: the
    ///   other tree shows which products the file is about
    static void align(Tree& one, Tree& other);

    /// Makes the library read this tree.
    void select() const;

    /// The names of the products that have a file or a section of the lookup index.
    const std::set<std::u16string>& products() const noexcept { return products_; }

    /// The damaged lookup files and packages.
    const std::vector<Damage>& lookupDamages() const noexcept { return lookupDamages_; }

    /// Reads a product. Its records refer to this tree.
    ReadProduct read(const std::u16string& product) const;

private:
    void takeSettings();
    void assign(const std::u16string& section, const std::u16string& product);
    void assignLike(const Tree& other);
    void addMissingEntries(const Tree& other);
    void addLookupFiles(const reference::docparser::LoadAccount& account);
    bool readResources(const std::u16string& product, ReadProduct& result) const;
    std::string relativePathOf(const reference::docparser::FileAccount& file) const;
    Damage damageOf(const reference::docparser::FileAccount& file) const;

    std::optional<check::TemporaryRoot> temporary_;
    std::string shownFile_; // for a single file

    // The settings that select() restores.
    std::shared_ptr<const platform::HostServices> services_;
    std::u16string root_;
    std::u16string supportFolder_;

    using LookupSections = std::map<std::u16string, const ProductRecords::LookupSection*>;

    std::set<std::u16string> fullProducts_;
    std::set<std::u16string> products_;
    LookupResults index_;
    std::map<std::u16string, std::u16string> productOf_;    // by section of the index
    std::map<std::u16string, LookupSections> lookup_;       // by product
    std::multimap<std::string, std::u16string> sectionsOf_; // by lookup file, see Damage
    std::vector<Damage> lookupDamages_;
    std::set<std::u16string> damagedLookups_;
};

} // namespace refdoc::diff
