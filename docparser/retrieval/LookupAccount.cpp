#include "docparser/retrieval/LookupAccount.hpp"

#include <string_view>
#include <unordered_map>
#include <utility>

namespace reference::docparser {

using property::RefItemLookup;

namespace {

// Decides about the records of one name that both sections had, which are still all there.
class NameDecisions {
public:
    // `count` records were on top before the merge, of the files in `targetOrigins`.
    NameDecisions(const std::u16string& name, const std::vector<RefItemLookup>& target,
                  std::size_t count, std::vector<std::size_t>& targetOrigins)
        : name_(name), target_(target), targetOrigins_(targetOrigins), next_(count) {
        for (std::size_t index = 0; index < count; ++index)
            owners_.try_emplace(target[index].getHref(), targetOrigins[index]);
    }

    RecordAccount decide(const RefItemLookup& record, std::size_t file) {
        const std::u16string& href = record.getHref();
        // What was appended stands behind the records that were there, in the same order.
        if (next_ < target_.size() && target_[next_].getHref() == href &&
            owners_.try_emplace(href, file).second) {
            ++next_;
            targetOrigins_.push_back(file);
            return {name_, href, RecordFate::AddedHref, file, file};
        }
        if (const auto owner = owners_.find(href); owner != owners_.end())
            return {name_, href, RecordFate::DroppedHref, file, owner->second};
        return {name_, href, RecordFate::DroppedCount, file, targetOrigins_.front()};
    }

private:
    const std::u16string& name_;
    const std::vector<RefItemLookup>& target_;
    std::vector<std::size_t>& targetOrigins_;
    std::size_t next_;                                            // of the appended records
    std::unordered_map<std::u16string_view, std::size_t> owners_; // href to file
};

} // namespace

void LookupAccount::placed(FileReport& report, const std::u16string& key, bool isInstalled,
                           const Items& items) {
    sectionOf(key, isInstalled) = {report.index(), originsOf(items, report.index())};
    SectionAccount& section = sectionAccountOf(report.file(), key);
    section.fate = SectionFate::New;
    section.isInstalled = isInstalled;
    section.other = report.index();
}

void LookupAccount::merged(FileReport& report, const std::u16string& key, bool isInstalled,
                           bool isOver, const Items& target, const Items& source,
                           const std::function<void()>& merge) {
    Section& known = sectionOf(key, isInstalled);
    Section under{report.index(), originsOf(isOver ? target : source, report.index())};
    SectionAccount& section = sectionAccountOf(report.file(), key);
    section.fate = isOver ? SectionFate::Overlay : SectionFate::Merged;
    section.isInstalled = isInstalled;
    section.other = known.owner;
    if (isOver)
        std::swap(known, under);
    // A file of several sections goes over others if one of them does.
    if (report.file().fate != Fate::Overlay)
        report.file().fate = isOver ? Fate::Overlay : Fate::Merged;

    const Counts common = commonNames(target, source);
    merge();
    section.records = decisions(target, source, common, known.origins, under.origins);
}

LookupAccount::Origins LookupAccount::originsOf(const Items& items, std::size_t file) {
    Origins origins;
    for (const auto& [name, records] : items)
        origins.emplace_hint(origins.end(), name, std::vector<std::size_t>(records.size(), file));
    return origins;
}

LookupAccount::Counts LookupAccount::commonNames(const Items& target, const Items& source) {
    Counts counts;
    for (const auto& [name, records] : source) {
        if (const auto known = target.find(name); known != target.end())
            counts.emplace_hint(counts.end(), name, known->second.size());
    }
    return counts;
}

std::vector<RecordAccount> LookupAccount::decisions(const Items& target, const Items& source,
                                                    const Counts& common, Origins& targetOrigins,
                                                    Origins& sourceOrigins) {
    std::vector<RecordAccount> result;
    for (const auto& [name, files] : sourceOrigins) {
        const std::vector<RefItemLookup>& kept = target.at(name);
        const auto count = common.find(name);
        if (count == common.end()) {
            for (std::size_t index = 0; index < kept.size(); ++index)
                result.push_back({name, kept[index].getHref(), RecordFate::AddedName, files[index],
                                  files[index]});
            continue;
        }
        NameDecisions decisions(name, kept, count->second, targetOrigins[name]);
        const std::vector<RefItemLookup>& offered = source.at(name);
        for (std::size_t index = 0; index < offered.size(); ++index)
            result.push_back(decisions.decide(offered[index], files[index]));
    }
    // What is left are the names that were added whole.
    targetOrigins.merge(sourceOrigins);
    return result;
}

} // namespace reference::docparser
