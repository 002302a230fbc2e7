#pragma once

#include "docparser/shared/LoadAccount.hpp"

#include <string>

namespace reference::docparser {

// How the rooms of the library find the account that is to be told, and what several of them tell.

/// Tells an account of a lookup file or package entry that is not read.
/// \param fate  SkippedLanguage or SkippedName
void noteSkipped(LoadAccount& account, std::u16string path, std::u16string entry, Fate fate);

/// The account in force on this thread, null without a scope.
LoadAccount* currentLoadAccount() noexcept;

} // namespace reference::docparser
