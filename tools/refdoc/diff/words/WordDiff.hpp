#pragma once

#include "tools/refdoc/diff/words/EditScript.hpp"
#include "tools/refdoc/diff/words/WordTokens.hpp"

#include <cstddef>
#include <limits>
#include <span>
#include <string_view>
#include <vector>

namespace refdoc::diff {

/// A part of one of two texts that were compared.
struct TextRun {
    enum class Fate {
        Kept,
        Skipped, ///< kept too, but far from any change
        Removed,
        Added
    };

    Fate fate;
    std::string_view text; ///< of the new text, or of the old one if it was removed; never empty

    bool operator==(const TextRun&) const = default;
};

/// Returns what a report shows in place of a skipped run.
/// \param skipped  an element of `runs`
std::string_view ellipsis(const std::vector<TextRun>& runs, const TextRun& skipped);

/// The usual context of a report: eight words with the spaces between them.
inline constexpr std::size_t kReportContext = 16;

/// Compares texts word by word. An object keeps its memory for further calls; several threads need
/// several objects.
class WordDiff {
public:
    /// \param context  how many tokens before and after a change are kept; those beyond are skipped
    explicit WordDiff(std::size_t context = std::numeric_limits<std::size_t>::max())
        : context_(context) {}

    /// Returns the parts of both texts in reading order. The removed text of a change stands before
    /// the added one. All runs without the added ones are the old text, and all without the removed
    /// ones the new text. Runs begin and end where a token does (see appendTokens()).
    ///
    /// Texts that have few words in common, or too many changes, are one change between their
    /// common beginning and end.
    ///
    /// Cost: linear in the lengths of the texts.
    /// \returns  views of the arguments, valid until the next call
    const std::vector<TextRun>& compare(std::string_view oldText, std::string_view newText);

private:
    // A text. Equal tokens of both texts have equal numbers.
    struct Side {
        std::vector<WordToken> tokens;
        std::vector<std::size_t> numbers;
    };

    struct Part {
        std::span<const WordToken> tokens;
        std::span<const std::size_t> numbers;
    };

    static Part partOf(const Side& side, std::size_t begin, std::size_t end);

    void readTokens(std::string_view oldText, std::string_view newText);
    void findMatches();
    void addMatchesBetween(const Match& first, const Match& last);

    // Counts the words that both parts have, in any order.
    std::size_t countCommonWords(const Part& oldPart, const Part& newPart);
    void joinChanges();
    bool isReplacement(const Match& left, const Match& right) const;
    bool isSpace(const Match& match) const;
    void addRuns();
    void addKept(const Match& match);
    void addRun(TextRun::Fate fate, const std::vector<WordToken>& tokens, std::size_t begin,
                std::size_t end);

    std::size_t context_;
    Side old_;
    Side new_;
    std::vector<std::size_t> counts_; // of the old tokens with each number
    std::vector<Match> matches_;
    std::vector<TextRun> runs_;
    EditScript script_{/*mostEdits=*/64};
};

} // namespace refdoc::diff
