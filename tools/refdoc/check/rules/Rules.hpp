#pragma once

#include <span>
#include <string_view>

namespace refdoc::check {

/// How much a finding matters. Errors cost a file, a section or a product; warnings cost or change
/// less; notes are for the reader to judge.
enum class Severity { Note, Warning, Error };

/// "note", "warning" or "error".
std::string_view toWord(Severity severity) noexcept;

/// What can be found. The order is that of the table of rules.
enum class RuleId {
    MalformedJson,
    ByteOrderMark,
    NestingTooDeep,
    MissingKey,
    WrongKind,
    UnknownKey,
    UnknownWord,
    NotAscii,
    DeprecatedFalse,
    RepeatedSectionKey,
    BaseCodeIsHelpFolder,
    UnreadableFile,
    NotAFile,
    OverLimit,
    UnreadablePackage,
    UnreadableEntry,
    ExtensionCase,
    IgnoredFile,
    UnsupportedLanguage,
    PackageLanguage,
    ExtraEntry,
    ShadowedFile,
    DroppedRecord,
    HiddenRecord,
    LookupWithoutPage,
    PageWithoutLookup,
    BrokenLink,
    LookupWithoutResources,
    InstalledWithoutDocumentation
};

struct Rule {
    RuleId id;
    std::string_view name; ///< stays from version to version: "missing-key"
    Severity severity;
    std::string_view summary;     ///< what is wrong, in one line without a period
    std::string_view explanation; ///< sentences: what the library does then, and what to do
};

/// All rules, each at the place that its id has as a number.
std::span<const Rule> rules() noexcept;

const Rule& ruleOf(RuleId id) noexcept;

/// The rule of this name; null when there is none.
const Rule* findRule(std::string_view name) noexcept;

} // namespace refdoc::check
