#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/rules/Finding.hpp"
#include "tools/refdoc/check/rules/PathNames.hpp"
#include "tools/refdoc/check/rules/Questions.hpp"

#include <set>
#include <vector>

namespace refdoc::check {

// Findings that the library's own account of what it did with each file comes down to.

using reference::docparser::LoadAccount;

/// Files and sections that were dropped for another reason than their content.
/// \throws std::runtime_error  a file could not be judged: memory, or a service of the host, failed
void addAccountFindings(const LoadAccount& account, const std::vector<SourceFile>& sources,
                        std::vector<Finding>& findings);

/// A lookup record that was lost when two sections were combined.
struct Loss {
    std::u16string section; // first, because it tells most losses apart
    SourceFile loser;
    SourceFile winner;
    std::u16string name;
    std::u16string href;
    std::size_t occurrence; ///< which of the loser's records with this name and href
    bool isSameHref;        ///< the winner has the href; else it has no fewer records of the name
    bool isHidden;          ///< by a translation; else by another file of the same language

    auto operator<=>(const Loss&) const = default;
};

/// The losses of an account. What a translation replaces is none.
void addLosses(const LoadAccount& account, const std::vector<SourceFile>& sources,
               std::set<Loss>& losses);

void askAbout(const std::set<Loss>& losses, Questions& questions);

/// The findings about losses, once the files have been read. A record that equals the one it lost
/// to is none.
void addLossFindings(const std::set<Loss>& losses, const Questions& questions,
                     const PathNames& names, std::vector<Finding>& findings);

} // namespace refdoc::check
