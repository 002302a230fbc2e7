#pragma once

#include <string>

namespace platform {

/// The folder that this library is installed under, without a separator at its end.
///
/// A library that lies in an installed tree answers with the root of that tree, wherever the tree
/// was moved to; one that lies elsewhere, in a build tree say, with the prefix it was built for.
std::u16string installationPrefix();

} // namespace platform
