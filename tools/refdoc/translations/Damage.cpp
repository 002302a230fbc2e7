#include "tools/refdoc/translations/Damage.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/explain/RuleText.hpp"
#include "tools/refdoc/session/FileDamage.hpp"

#include <fmt/format.h>

namespace refdoc::translations {

using fl::i18n::to_string;
using reference::docparser::FileAccount;
using reference::docparser::LoadAccount;

void addDamaged(const LoadAccount& account, const std::u16string& language, bool isTranslation,
                std::vector<DamagedFile>& damaged) {
    for (const FileAccount& file : account.files) {
        if (isUnusable(file) && file.isTranslation == isTranslation)
            damaged.push_back({language, file});
    }
}

std::string complaintAbout(const DamagedFile& damaged) {
    const FileAccount& file = damaged.file;
    return fmt::format(
        "{}: {}{}{}; what it documents counts as missing", to_string(placeText(file, file.place)),
        reference::docparser::toWord(file.fate), file.reason.empty() ? "" : ": ", file.reason);
}

} // namespace refdoc::translations
