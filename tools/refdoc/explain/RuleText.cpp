#include "tools/refdoc/explain/RuleText.hpp"

#include "platform/i18n/Converter.hpp"
#include "platform/path/Path.hpp"

#include <fmt/format.h>

#include <variant>

namespace refdoc {

using namespace reference::docparser;

namespace {

// Without the folder, which is shown with the winner's own records.
std::u16string nameOf(const FileAccount& file) {
    const std::u16string text = fileText(file);
    const std::size_t name = fl::filesystem::path(file.path).filename().string().size();
    return text.substr(file.path.size() - name);
}

std::u16string recordRule(RecordFate fate, const std::u16string& winner) {
    switch (fate) {
    case RecordFate::Replaced: return u"replaced: the translation has the href, in " + winner;
    case RecordFate::DroppedHref:
        return u"dropped-href: a record of the name has this href, in " + winner;
    case RecordFate::DroppedCount:
        return u"dropped-count: the name has at least as many records, in " + winner;
    case RecordFate::AddedName:
    case RecordFate::AddedHref: break; // never lost
    }
    return {};
}

std::u16string recordRule(SectionFate fate, const std::u16string&) {
    return fate == SectionFate::KeyTaken
               ? u"key-taken: an earlier section of the same file has the section's key"
               : u"unused: the retrieval failed before";
}

} // namespace

std::u16string fileText(const FileAccount& file) {
    return file.entry.empty() ? file.path : file.path + u"!" + file.entry;
}

std::u16string placeText(const FileAccount& file, const std::optional<TextPlace>& place) {
    if (!place)
        return fileText(file);
    return fileText(file) + fl::i18n::to_ustring(fmt::format(":{}:{}", place->line, place->column));
}

std::u16string ruleOf(const LostRecord& lost, const std::vector<FileAccount>& files) {
    return std::visit([&](auto fate) { return recordRule(fate, nameOf(files[lost.winner])); },
                      lost.fate);
}

std::u16string ruleOf(const LostHeader& lost, const std::vector<FileAccount>& files) {
    const std::u16string winner = nameOf(files[lost.winner]);
    switch (lost.fate) {
    case SectionFate::KeyTaken:
        return u"key-taken: an earlier section of the same file has the key";
    case SectionFate::Overlay:
        return u"overlay: replaced by the header of the translation, in " + winner;
    case SectionFate::Merged:
        return u"merged: the header of the earlier section is kept, in " + winner;
    case SectionFate::Unused: return u"unused: the retrieval failed before";
    case SectionFate::New: break; // never lost
    }
    return {};
}

} // namespace refdoc
