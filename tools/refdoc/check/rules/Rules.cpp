#include "tools/refdoc/check/rules/Rules.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

namespace refdoc::check {

namespace {

using enum RuleId;
using enum Severity;

constexpr Rule kRules[] = {
    {MalformedJson, "malformed-json", Error, "invalid JSON",
     "A file that is not valid JSON is dropped as a whole, like a missing file. An empty file is "
     "not valid either. Fix the error at the reported position."},
    {ByteOrderMark, "byte-order-mark", Error, "the text begins with a byte-order mark",
     "JSON begins with a value. The three bytes EF BB BF before it make the text invalid, and the "
     "file is dropped as a whole. Save it as UTF-8 without a byte-order mark."},
    {NestingTooDeep, "nesting-too-deep", Error, "values are nested deeper than 32 levels",
     "The parser gives up below 32 levels of objects and arrays, and the file is dropped as a "
     "whole. The format itself needs no more than eight; look for what is nested by mistake."},
    {MissingKey, "missing-key", Error, "a required key is missing",
     "One object without a required key costs the whole file, whatever else is in it. Add the key; "
     "a text may be empty."},
    {WrongKind, "wrong-kind", Error, "a value is of another kind than the format names",
     "One value of the wrong kind, such as a number where a text belongs, costs the whole file. "
     "Only enumeration words and \"deprecated\" are exempt."},
    {UnknownKey, "unknown-key", Warning, "the key has no meaning where it stands",
     "Keys that the format does not know are ignored, so a misspelt key counts as absent. "
     "Keys are compared to the letter, upper and lower case included. Beside \"namevaluepairs\" "
     "every other key is ignored. Correct the key or remove it."},
    {UnknownWord, "unknown-word", Warning, "the enumeration has no such word",
     "A word that an enumeration does not know, or a value that is no text, counts as the "
     "enumeration's default. Words are compared to the letter."},
    {NotAscii, "not-ascii", Warning, "a text that is read as ASCII holds other characters",
     "Identifiers and links are read byte by byte, each byte becoming a character of its own, so "
     "that what is beyond ASCII comes out garbled and a link leads nowhere. Write such a link with "
     "percent escapes. Names of inputs and properties may hold any character in an item that has "
     "an entity of type \"component\"."},
    {DeprecatedFalse, "deprecated-false", Warning, "\"deprecated\": false marks as deprecated",
     "The key \"deprecated\" alone counts, whatever its value. Remove the key from records that "
     "are "
     "not deprecated."},
    {RepeatedSectionKey, "repeated-section-key", Error, "two sections of a file have one key",
     "Of the sections of a file that have the same key, the first is kept and the others are "
     "dropped with all their items. Give each support package a \"baseCode\" of its own."},
    {BaseCodeIsHelpFolder, "base-code-is-help-folder", Error,
     "a support package has the main section's help folder as its base code",
     "The main section is keyed by its \"helpFolder\", the section of a support package by its "
     "\"baseCode\". When the two are equal the support package is dropped with all its items."},
    {UnreadableFile, "unreadable-file", Error, "the file can't be read",
     "A file that the system does not open, or does not deliver whole, counts as missing. Look at "
     "its permissions, and at what a link points to."},
    {NotAFile, "not-a-file", Error, "a folder or device bears the name of a resource file",
     "Only regular files are read. A folder, pipe, socket or device counts as missing."},
    {OverLimit, "over-limit", Error, "the file is larger than the limit",
     "A file and a decompressed entry may have 1 GiB, all entries of a package 4 GiB, the "
     "directory "
     "of a package 64 MiB. Larger ones are not read. Split the product."},
    {UnreadablePackage, "unreadable-package", Error, "the package can't be opened",
     "A package that is damaged, or no zip at all, contributes nothing to the index. Pack it "
     "again."},
    {UnreadableEntry, "unreadable-entry", Error, "the package can't deliver the entry",
     "An entry that is encrypted, damaged or compressed by an unknown method costs the product in "
     "it; the other entries of the package are served. Pack it again, deflated or stored."},
    {ExtensionCase, "extension-case", Error,
     "the file is ignored because of the case of its extension",
     "Extensions are compared to the letter: only \"json\" and, in the lookup folder, \"zip\" "
     "count. "
     "Rename the file."},
    {IgnoredFile, "ignored-file", Warning, "what looks like a resource file is ignored",
     "The name or the first bytes say that the file was meant to be read, but its name is not that "
     "of a resource file. Only \"NAME.json\" and, in the lookup folder, \"NAME.zip\" are read. "
     "Rename the file, or move it out of the folder. Other files are silently ignored."},
    {UnsupportedLanguage, "unsupported-language", Warning,
     "the suffix of the name is no supported language",
     "A file counts as a translation only when its name ends with \"_\" and a supported language "
     "but English, spelt as the application spells it. Any other suffix makes the file the English "
     "file of a product of that longer name; \"_en\" does too, for English has no suffix. Rename "
     "the file, or name the languages with --langs or in installation.json."},
    {PackageLanguage, "package-language", Error,
     "a package of one entry and its entry disagree on the language",
     "In a package with one entry the package's own name says whether the entry is a translation. "
     "A translated package needs an entry that carries the language too, or the entry is never "
     "read; a translated entry in a package without a suffix counts as English."},
    {ExtraEntry, "extra-entry", Warning, "a file that is not read makes the package one of several",
     "Every file in a package counts, but the packaging metadata. Besides the one resource file "
     "there is another, so that the resource file's own name decides on its language and no longer "
     "the package's. Remove the other file."},
    {ShadowedFile, "shadowed-file", Warning,
     "the file is never read: another folder has the product",
     "The folder of the support packages is tried only when the reference root has no usable file "
     "of the product, in English or in the current language. Remove one of the two."},
    {DroppedRecord, "dropped-record", Warning, "a record is lost when two lookup files are merged",
     "When two files have a section of one key, the first that was read keeps its records. The "
     "other adds names that the first lacks. Of a name that both have it adds the records with new "
     "links, but only when it has more records of the name than the first. Everything else is "
     "dropped. Records that are equal in both files are no finding."},
    {HiddenRecord, "hidden-record", Warning, "a translation hides a record that it does not have",
     "A translated lookup file comes before the English one. Of a name that both have, the English "
     "records with other links are added only when English has more records of the name. Add the "
     "record to the translation."},
    {LookupWithoutPage, "lookup-without-page", Warning,
     "the link of a lookup record is that of no item",
     "Who follows the record finds no item with this link in the full resources of the product. "
     "Correct the link, or add the item."},
    {PageWithoutLookup, "page-without-lookup", Note, "no lookup record leads to the item",
     "The item documents names, but no record of the lookup index has its link, so nobody finds it "
     "by name. Items without entities need no record."},
    {BrokenLink, "broken-link", Warning, "the see-also link leads to no item",
     "No product has an item or a lookup record with this link. Links start at the product's help "
     "location; what follows \"#\" does not count, nor do links with a scheme such as \"https:\"."},
    {LookupWithoutResources, "lookup-without-resources", Warning,
     "the product of a lookup file has no full resources",
     "The index names the product's records, but there is no usable full resource file for them, "
     "or "
     "none with a section of this key. Products that are not installed are exempt where others "
     "are: their full resources come with them."},
    {InstalledWithoutDocumentation, "installed-without-documentation", Warning,
     "an installed product has neither lookup nor full resources",
     "No file has a section whose key is the short name of the product or the name of the support "
     "package. Keys are compared to the letter."}};

constexpr bool isInOrder() {
    for (std::size_t index = 0; index < std::size(kRules); ++index) {
        if (static_cast<std::size_t>(kRules[index].id) != index)
            return false;
    }
    return true;
}
static_assert(isInOrder());

} // namespace

std::string_view toWord(Severity severity) noexcept {
    switch (severity) {
    case Severity::Note: return "note";
    case Severity::Warning: return "warning";
    case Severity::Error: break;
    }
    return "error";
}

std::span<const Rule> rules() noexcept {
    return kRules;
}

const Rule& ruleOf(RuleId id) noexcept {
    return kRules[static_cast<std::size_t>(id)];
}

const Rule* findRule(std::string_view name) noexcept {
    const auto found = std::ranges::find(kRules, name, &Rule::name);
    return found == std::end(kRules) ? nullptr : &*found;
}

} // namespace refdoc::check
