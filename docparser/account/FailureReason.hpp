#pragma once

#include "docparser/account/LoadAccount.hpp"

#include <exception>
#include <optional>
#include <string>

namespace reference::docparser {

// Translates exceptions into the fate and reason that an account reports for a file.

/// Why a file is not used; the fields are those of FileAccount.
struct FailureReason {
    Fate fate = Fate::Failed;
    std::string reason{};
    std::string pointer{};
    std::optional<TextPlace> place{};
};

/// Returns why a file or package could not be opened: Missing, NotRegular, or the fate that
/// `failure` implies.
/// \param failure  null if the file could not be opened and nothing was thrown
FailureReason reasonOfOpening(const std::u16string& path, const std::exception_ptr& failure);

/// Returns why a file could not be read completely: Unreadable, OverLimit, or Failed if memory ran
/// out.
/// \param failure  not null
FailureReason reasonOfReading(const std::exception_ptr& failure);

/// Returns why a file that was read is not used: Malformed, with the position of the error, or
/// Failed.
/// \param failure  not null
/// \param text     the file's string
FailureReason reasonOfUse(const std::exception_ptr& failure, const std::string& text);

/// Copies a reason into the account of a file. Removes the sections of a malformed file, because
/// nothing of it is used.
void applyReason(FailureReason reason, FileAccount& file);

} // namespace reference::docparser
