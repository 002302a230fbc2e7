#pragma once

#include <span>
#include <string_view>

namespace refdoc::html {

// The files that all pages share.

inline constexpr std::string_view kStyleName = "style.css";
inline constexpr std::string_view kIconName = "icon.svg";

/// The script of each page. The build joins it from all scripts in `assets/` but `live.js`.
inline constexpr std::string_view kScriptName = "script.js";

struct Asset {
    std::string_view name;
    std::string_view content; ///< UTF-8
};

/// Returns the files of `assets/`, which are built into the tool.
std::span<const Asset> assets();

/// Returns the script that loads a page again when its server has a new version. The attribute
/// "data-events" of its element has the URL of the events.
const Asset& liveScript();

} // namespace refdoc::html
