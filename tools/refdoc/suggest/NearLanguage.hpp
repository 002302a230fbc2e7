#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

/// Returns the known language that a user who typed `language` may have meant, if there is one. In
/// this order:
/// 1. the same language in another spelling: "de" for "DE", "zh_CN" for "zh-cn"
/// 2. the same language elsewhere: "de" for "de-AT", "zh_CN" for "zh"
/// 3. one of nearNames() other than English, which needs no option: "ja" for "jp"
/// \param known  languages as in file names, in any order
std::vector<std::u16string> nearLanguage(std::u16string_view language,
                                         const std::vector<std::u16string>& known);

} // namespace refdoc
