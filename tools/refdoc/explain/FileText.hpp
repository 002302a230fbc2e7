#pragma once

#include "docparser/LoadAccount.hpp"

#include <cstddef>
#include <optional>
#include <string>

namespace refdoc {

/// The text of a file or package entry that a retrieval has read.
///
/// Of entries of equal names it is the one that the account means: they stand in the account in the
/// order of the package.
/// \param index  of the file in the account
/// \returns      nothing when the file can't be read any more, or not as a whole
std::optional<std::string> readFileText(const reference::docparser::LoadAccount& account,
                                        std::size_t index);

} // namespace refdoc
