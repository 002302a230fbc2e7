#pragma once

#include "platform/path/Path.hpp"

namespace reference::docparser {

/// Whether a file of this name counts as a product file: its extension is "json" or "zip", to the
/// letter. Nothing but the name is looked at.
bool isValidFilename(const fl::filesystem::path& path);

} // namespace reference::docparser
