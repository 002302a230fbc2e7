#include "tools/refdoc/diff/Tree.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "docparser/Queries.hpp"
#include "platform/LanguageOverrides.hpp"
#include "tools/refdoc/check/TargetOptions.hpp"
#include "tools/refdoc/check/findings/PathNames.hpp"
#include "tools/refdoc/check/rules/NameRules.hpp"
#include "tools/refdoc/session/FileDamage.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/Languages.hpp"
#include "tools/refdoc/session/ProductNames.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"
#include "tools/refdoc/session/SupportFolder.hpp"

#include <fmt/format.h>

#include <cstddef>

namespace refdoc::diff {

namespace fs = std::filesystem;

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
using reference::docparser::Fate;
using reference::docparser::FileAccount;
using reference::docparser::LoadAccount;
using reference::docparser::toPath;
using reference::docparser::toUtf8;

namespace {

std::string entryOf(const FileAccount& file) {
    return file.entry.empty() ? "" : fmt::format("!{}", toUtf8(file.entry));
}

std::string errorOf(const FileAccount& file) {
    if (file.fate == Fate::NotRegular)
        return "not a regular file";
    std::string error = file.reason.empty() ? std::string(toWord(file.fate)) : file.reason;
    if (file.place)
        error += fmt::format(" at line {}, column {}", file.place->line, file.place->column);
    return error;
}

// Reads the file as it is, whatever languages are supported.
Options withoutLanguages(Options options) {
    options.language = u"en";
    options.supportedLanguages = std::vector<std::u16string>();
    options.installFolder.reset();
    return options;
}

} // namespace

Tree::Tree(const fs::path& folder, const Options& options) {
    DocResourceParser::restoreDefaultSettings();
    const Options chosen = check::optionsForFolder(folder, options);
    applyOptions(chosen);
    if (chosen.referenceRoot && !chosen.supportFolder)
        disableSupportFolder();
    takeSettings();
}

Tree::Tree(const SingleFile& file, const Options& options)
    : temporary_(std::in_place, file.path, file.folder, file.name), shownFile_(file.shownPath) {
    DocResourceParser::restoreDefaultSettings();
    const bool isPackage = file.name.extension() == ".zip";
    applyOptions(
        check::optionsForFile(*temporary_, isPackage ? options : withoutLanguages(options)));
    takeSettings();
}

void Tree::takeSettings() {
    services_ = platform::hostServices();
    root_ = DocResourceParser::getReferenceRoots()->root;
    supportFolder_ = *DocResourceParser::getSupportPackageRoot();
}

void Tree::setLanguages(const std::u16string& language,
                        const std::vector<std::u16string>& supported) {
    services_ = std::make_shared<platform::LanguageOverrides>(services_, language, supported);
}

void Tree::select() const {
    platform::setHostServices(services_);
    DocResourceParser::setReferenceRoot(root_);
    DocResourceParser::setSupportPackageRoot(supportFolder_);
}

void Tree::load() {
    select();
    LoadAccount account;
    {
        const LoadAccount::Scope scope(account);
        index_ = DocResourceParser::getResourceLookupFiles();
    }
    for (const auto* sections : {&index_.installed, &index_.notInstalled}) {
        for (const auto& [key, section] : *sections) {
            productOf_.emplace(key, section.header.getProduct());
            lookup_[section.header.getProduct()].emplace(key, &section);
        }
    }
    addLookupFiles(account);
    for (const std::u16string& name : productNames())
        fullProducts_.insert(name);
    products_ = fullProducts_;
    products_.insert(damagedLookups_.begin(), damagedLookups_.end());
    for (const auto& [product, sections] : lookup_)
        products_.insert(product);
}

void Tree::assign(const std::u16string& section, const std::u16string& product) {
    std::u16string& current = productOf_.at(section);
    const auto former = lookup_.find(current);
    lookup_[product].insert(former->second.extract(section));
    if (former->second.empty()) {
        lookup_.erase(former);
        if (!fullProducts_.contains(current) && !damagedLookups_.contains(current))
            products_.erase(current);
    }
    products_.insert(product);
    current = product;
}

// The smaller name is the same in both directions. assign() neither adds nor removes sections of
// productOf_, so its iterators stay valid.
void Tree::assignLike(const Tree& other) {
    for (const auto& [section, product] : productOf_) {
        const auto found = other.productOf_.find(section);
        if (found != other.productOf_.end() && found->second < product)
            assign(section, found->second);
    }
}

void Tree::addMissingEntries(const Tree& other) {
    for (const Damage& damage : lookupDamages_) {
        const auto isInFile = [&](const std::string& file) {
            return file == damage.relativePath || file.starts_with(damage.relativePath + "!");
        };
        for (auto each = other.sectionsOf_.lower_bound(damage.relativePath);
             each != other.sectionsOf_.end() && isInFile(each->first); ++each)
            damagedLookups_.insert(other.productOf_.at(each->second));
    }
}

void Tree::align(Tree& one, Tree& other) {
    one.assignLike(other);
    other.assignLike(one);
    one.addMissingEntries(other);
    other.addMissingEntries(one);
}

void Tree::addLookupFiles(const LoadAccount& account) {
    const std::vector<SourceFile> sources = sourceFiles(account);
    const std::vector<std::u16string> languages = allLanguages();
    for (std::size_t index = 0; index < sources.size(); ++index) {
        const FileAccount& file = account.files[index];
        if (isUnusable(file)) {
            lookupDamages_.push_back(damageOf(file));
            damagedLookups_.insert(check::productNameOf(sources[index], languages));
        }
        for (const auto& section : file.sections) {
            if (productOf_.contains(section.key))
                sectionsOf_.emplace(relativePathOf(file), section.key);
        }
    }
}

bool Tree::readResources(const std::u16string& product, ReadProduct& result) const {
    bool hasFailed = false;
    LoadAccount account;
    const LoadAccount::Scope scope(account);
    try {
        result.records.resources = DocResourceParser::getResourceFile(product);
    } catch (const DocParserException&) {
        hasFailed = true; // The account has the reason.
    }
    for (const FileAccount& file : account.files) {
        if (isUnusable(file))
            result.damages.push_back(damageOf(file));
    }
    // The name is in the folder, but belongs to a link without a target.
    if (hasFailed && result.damages.empty() && !account.files.empty())
        result.damages.push_back(damageOf(account.files.front()));
    return result.damages.empty();
}

ReadProduct Tree::read(const std::u16string& product) const {
    ReadProduct result;
    result.records.exists = products_.contains(product);
    if (fullProducts_.contains(product))
        result.records.areResourcesDamaged = !readResources(product, result);
    if (const auto found = lookup_.find(product); found != lookup_.end())
        result.records.lookup = found->second;
    result.records.isLookupDamaged = damagedLookups_.contains(product);
    return result;
}

std::string Tree::relativePathOf(const FileAccount& file) const {
    const fs::path path = toPath(file.path).lexically_normal();
    const fs::path relative = path.lexically_relative(toPath(root_).lexically_normal());
    return toUtf8(relative.generic_u16string()) + entryOf(file);
}

Damage Tree::damageOf(const FileAccount& file) const {
    const std::string entry = entryOf(file);
    const check::PathNames names(fs::current_path());
    return {.relativePath = relativePathOf(file),
            .shownPath =
                shownFile_.empty() ? names.pathOf({.path = file.path}) + entry : shownFile_ + entry,
            .error = errorOf(file)};
}

} // namespace refdoc::diff
