#include "tools/refdoc/suggest/NearLanguage.hpp"

#include "tools/refdoc/suggest/NearNames.hpp"

#include <algorithm>

namespace refdoc {

namespace {

// "zh_CN" for "zh-CN"
std::u16string withUnderscores(std::u16string_view language) {
    std::u16string result(language);
    std::ranges::replace(result, u'-', u'_');
    return result;
}

// "zh" for "zh_CN"
std::u16string_view withoutTerritory(std::u16string_view language) {
    return language.substr(0, language.find(u'_'));
}

} // namespace

std::vector<std::u16string> nearLanguage(std::u16string_view language,
                                         const std::vector<std::u16string>& known) {
    const std::u16string wanted = withUnderscores(language);
    for (const std::u16string& candidate : known) {
        if (isSameName(wanted, candidate))
            return {candidate};
    }
    for (const std::u16string& candidate : known) {
        if (isSameName(withoutTerritory(wanted), withoutTerritory(candidate)))
            return {candidate};
    }
    std::vector<std::u16string_view> translated(known.begin(), known.end());
    std::erase(translated, u"en");
    return nearNames(wanted, translated, /*maximum=*/1);
}

} // namespace refdoc
