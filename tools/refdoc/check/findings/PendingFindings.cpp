#include "tools/refdoc/check/findings/PendingFindings.hpp"

#include "platform/i18n/Converter.hpp"

#include <algorithm>
#include <utility>

namespace refdoc::check {

namespace json = boost::json;

using reference::docparser::FileAccount;
using reference::docparser::FileRole;
using reference::docparser::SectionAccount;
using reference::docparser::SectionFate;

namespace {

// Writes the key to a string that is reused, because it is made for every record of a file.
void assignKey(std::string& key, std::string_view name, std::string_view href,
               std::string_view link) {
    key.assign(name).append(1, '\n').append(href).append(1, '\n').append(link);
}

// The library reads links byte by byte, so each code unit is a byte of the text.
void appendLink(std::string& key, std::u16string_view link) {
    key += '\n';
    for (const char16_t unit : link)
        key += static_cast<char>(unit);
}

std::string keyOf(const RecordKey& record) {
    std::string key = fl::i18n::to_string(record.name);
    key.reserve(key.size() + record.href.size() + record.link.size() + 2);
    appendLink(key, record.href);
    appendLink(key, record.link);
    return key;
}

std::string_view stringIn(const json::value& object, std::string_view key) {
    return object.at(key).as_string();
}

} // namespace

// Reports what is pending about one section of one file.
class PendingFindings::SectionReport {
public:
    SectionReport(const SectionAccount& account, Section& pending, std::size_t number,
                  std::vector<Finding>& findings)
        : account_(account),
          pending_(pending),
          number_(number),
          findings_(findings),
          section_(fl::i18n::to_string(account.key) + '\n') {}

    void run(FileRole role, const json::value& document) {
        assignKey(key_, {}, {}, {});
        report([&] { return account_.pointer; });
        std::size_t index = 0;
        for (const json::value& item :
             document.at_pointer(account_.pointer).at("refItems").as_array()) {
            const auto makePointer = [&] {
                return account_.pointer + "/refItems/" + std::to_string(index);
            };
            if (role == FileRole::Lookup)
                reportRecord(item, makePointer);
            else
                reportItem(item, makePointer);
            ++index;
        }
    }

private:
    template <class MakePointer>
    void reportRecord(const json::value& record, MakePointer makePointer) {
        assignKey(key_, stringIn(record, "name"), stringIn(record, "href"), {});
        report(makePointer);
    }

    template <class MakePointer>
    void reportItem(const json::value& item, MakePointer makePointer) {
        assignKey(key_, {}, stringIn(item, "href"), {});
        report(makePointer);
        const json::value* links = item.as_object().if_contains("seealso");
        if (!links)
            return;
        std::size_t index = 0;
        for (const json::value& link : links->as_array()) {
            assignKey(key_, {}, {}, stringIn(link, "url"));
            report([&] { return makePointer() + "/seealso/" + std::to_string(index) + "/url"; });
            ++index;
        }
    }

    template <class MakePointer>
    void report(MakePointer makePointer) {
        const auto [first, last] = pending_.equal_range(key_);
        for (auto entry = first; entry != last; ++entry) {
            Pending& pending = entry->second;
            const bool isReported = pending.reporter == Reporter::FirstFile
                                        ? pending.reportedBy != 0
                                        : pending.reportedBy == number_;
            if (isReported)
                continue;
            pending.reportedBy = number_;
            findings_.push_back({.rule = pending.rule,
                                 .location = {.pointer = makePointer()},
                                 .message = pending.message,
                                 .identity = section_ + key_,
                                 .cause = pending.cause});
        }
    }

    const SectionAccount& account_;
    Section& pending_;
    std::size_t number_;
    std::vector<Finding>& findings_;
    std::string section_; // the start of identities
    std::string key_;
};

void PendingFindings::add(const Rule& rule, FileRole role, const std::u16string& section,
                          const RecordKey& record, Reporter reporter, std::string message,
                          std::string cause) {
    Section& pending = sections_[role][section];
    std::string key = keyOf(record);
    const auto [first, last] = pending.equal_range(key);
    if (std::none_of(first, last, [&](const auto& entry) { return entry.second.rule == &rule; }))
        pending.emplace(std::move(key),
                        Pending{&rule, std::move(message), std::move(cause), reporter});
}

void PendingFindings::report(const FileAccount& account, const json::value& document,
                             std::vector<Finding>& findings) {
    const auto pending = sections_.find(account.role);
    if (pending == sections_.end())
        return;
    for (const SectionAccount& section : account.sections) {
        const auto found = pending->second.find(section.key);
        if (section.fate != SectionFate::KeyTaken && found != pending->second.end())
            SectionReport(section, found->second, ++sectionCount_, findings)
                .run(account.role, document);
    }
}

} // namespace refdoc::check
