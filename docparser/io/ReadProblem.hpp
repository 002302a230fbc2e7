#pragma once

#include "docparser/shared/LoadAccount.hpp"

#include <exception>
#include <string>

namespace reference::docparser {

/// Why a file or entry could not be read whole.
struct ReadProblem {
    Fate fate = Fate::Used; ///< Used: there is no problem
    std::string reason;     ///< for people, in UTF-8; may be empty
};

/// What a failed step says of the file that it was to read: Unreadable, OverLimit, or Failed where
/// memory ended.
/// \param failure  not null
ReadProblem problemOf(const std::exception_ptr& failure);

/// The problem of a file that could not be opened: Missing, NotRegular, or as `failure` says.
/// \param path     the file
/// \param failure  what the opening threw; null when it just did not open
ReadProblem problemOfOpening(const std::u16string& path, const std::exception_ptr& failure);

} // namespace reference::docparser
