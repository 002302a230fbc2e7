#pragma once

#include <string>

namespace platform {

/// Opens a URL in the user's browser, and does not wait for it.
/// \param url  ASCII
/// \returns    false if no program for that could be started
bool openInBrowser(const std::string& url);

} // namespace platform
