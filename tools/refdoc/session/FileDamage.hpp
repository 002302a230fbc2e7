#pragma once

#include "docparser/account/LoadAccount.hpp"

namespace refdoc {

/// Returns whether a file exists, but nothing of it is used because of the file itself.
constexpr bool isDamaged(const reference::docparser::FileAccount& file) noexcept {
    using enum reference::docparser::Fate;
    return file.fate == Malformed || file.fate == Unreadable || file.fate == NotRegular ||
           file.fate == OverLimit;
}

/// Returns whether a file exists, but nothing of it is used: it is damaged, memory ran out, or a
/// host service failed.
constexpr bool isUnusable(const reference::docparser::FileAccount& file) noexcept {
    return isDamaged(file) || file.fate == reference::docparser::Fate::Failed;
}

} // namespace refdoc
