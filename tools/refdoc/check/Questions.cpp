#include "tools/refdoc/check/Questions.hpp"

#include "platform/i18n/Converter.hpp"

#include <fmt/format.h>

#include <functional>
#include <string_view>

namespace refdoc::check {

namespace json = boost::json;

using reference::docparser::SectionFate;

namespace {

// Reads the string under a key as the library reads links.
std::u16string linkIn(const json::value& object, std::string_view key) {
    const std::string_view link = object.at(key).as_string();
    return fl::i18n::codecvt_ascii_to_ustring(/*strict=*/false).convert(link.data(), link.size());
}

// The items of a section that the library has read, and so has the right kinds.
const json::array& itemsOf(const json::value& document, const SectionAccount& section) {
    return document.at_pointer(section.pointer).at("refItems").as_array();
}

std::string pointerTo(const SectionAccount& section, std::size_t index) {
    return fmt::format("{}/refItems/{}", section.pointer, index);
}

std::string identityOf(const std::u16string& section, const RecordKey& key) {
    std::u16string identity = section;
    for (const std::u16string* part : {&key.name, &key.href, &key.link})
        identity.append(u"\n").append(*part);
    return fl::i18n::to_string(identity);
}

// Answers the questions about one section of one file.
class Answering {
public:
    // `answered` are the questions that no file need answer any more.
    Answering(const SourceFile& file, const SectionAccount& section,
              const SectionQuestions& questions,
              std::unordered_set<const SectionQuestion*>& answered, std::vector<Finding>& findings)
        : file_(file),
          section_(section),
          questions_(questions),
          answered_(answered),
          findings_(findings) {}

    // makePointer() returns the position of the record; called only if something is asked about it.
    template <class MakePointer>
    void about(const RecordKey& key, MakePointer makePointer) {
        const auto [first, last] = questions_.equal_range(key);
        for (auto entry = first; entry != last; ++entry) {
            const SectionQuestion& question = entry->second;
            auto& done = question.isAskedOnce ? answered_ : done_;
            if (done.insert(&question).second)
                add(question, key, makePointer());
        }
    }

private:
    void add(const SectionQuestion& question, const RecordKey& key, std::string pointer) {
        findings_.push_back({.rule = question.rule,
                             .spot = {.file = file_, .pointer = std::move(pointer)},
                             .message = question.message,
                             .identity = identityOf(section_.key, key)});
    }

    const SourceFile& file_;
    const SectionAccount& section_;
    const SectionQuestions& questions_;
    std::unordered_set<const SectionQuestion*>& answered_;
    std::unordered_set<const SectionQuestion*> done_; // each is answered once in a section
    std::vector<Finding>& findings_;
};

template <class MakePointer>
void answerLookup(const json::value& record, MakePointer makePointer, Answering& answering) {
    answering.about({.name = fl::i18n::to_ustring(record.at("name").as_string()),
                     .href = linkIn(record, "href")},
                    makePointer);
}

template <class MakePointer>
void answerItem(const json::value& item, MakePointer makePointer, Answering& answering) {
    answering.about({.href = linkIn(item, "href")}, makePointer);
    const json::value* links = item.as_object().if_contains("seealso");
    if (!links)
        return;
    std::size_t index = 0;
    for (const json::value& link : links->as_array()) {
        answering.about({.link = linkIn(link, "url")},
                        [&] { return fmt::format("{}/seealso/{}/url", makePointer(), index); });
        ++index;
    }
}

void answerSection(const SectionAccount& section, FileRole role, const json::value& document,
                   Answering& answering) {
    answering.about({}, [&] { return section.pointer; });
    std::size_t index = 0;
    const auto makePointer = [&] { return pointerTo(section, index); };
    for (const json::value& item : itemsOf(document, section)) {
        role == FileRole::Lookup ? answerLookup(item, makePointer, answering)
                                 : answerItem(item, makePointer, answering);
        ++index;
    }
}

} // namespace

void Questions::answer(const SourceFile& file, FileRole role,
                       const std::vector<SectionAccount>& sections, const json::value& document,
                       std::vector<Finding>& findings) {
    const auto& askedOfRole = sections_[role];
    const auto askedOfFile = records_.find(file);
    for (const SectionAccount& section : sections) {
        if (section.fate == SectionFate::KeyTaken)
            continue;
        if (const auto asked = askedOfRole.find(section.key); asked != askedOfRole.end()) {
            Answering answering(file, section, asked->second, answered_, findings);
            answerSection(section, role, document, answering);
        }
        if (askedOfFile == records_.end())
            continue;
        const auto names = askedOfFile->second.find(section.key);
        if (names != askedOfFile->second.end())
            answerRecords(section, document, names->second);
    }
}

void Questions::answerRecords(const SectionAccount& section, const json::value& document,
                              ByName& names) {
    std::size_t index = 0;
    for (const json::value& record : itemsOf(document, section)) {
        const auto asked = names.find(fl::i18n::to_ustring(record.at("name").as_string()));
        if (asked != names.end())
            asked->second.emplace(
                linkIn(record, "href"),
                RecordAnswer{pointerTo(section, index), std::hash<json::value>()(record)});
        ++index;
    }
}

const std::multimap<std::u16string, RecordAnswer>&
Questions::records(const SourceFile& file, const std::u16string& section,
                   const std::u16string& name) const {
    return records_.at(file).at(section).at(name);
}

} // namespace refdoc::check
