#include "docparser/account/LoadAccount.hpp"

#include "docparser/account/RetrievalRecording.hpp"

#include <utility>

namespace reference::docparser {

namespace {

thread_local LoadAccount* accountOfThread = nullptr;

} // namespace

LoadAccount::Scope::Scope(LoadAccount& account) noexcept
    : outer_(std::exchange(accountOfThread, &account)) {}

LoadAccount::Scope::~Scope() {
    accountOfThread = outer_;
}

RetrievalRecording::RetrievalRecording() noexcept : account_(accountOfThread) {
    if (account_)
        recorder_.emplace();
}

RetrievalRecording::~RetrievalRecording() {
    if (account_)
        recorder_->appendTo(*account_);
}

std::string_view toWord(Fate fate) noexcept {
    switch (fate) {
    case Fate::Used: return "used";
    case Fate::Overlay: return "overlay";
    case Fate::Merged: return "merged";
    case Fate::SkippedLanguage: return "skipped-language";
    case Fate::SkippedName: return "skipped-name";
    case Fate::Missing: return "missing";
    case Fate::Unreadable: return "unreadable";
    case Fate::NotRegular: return "not-regular";
    case Fate::Malformed: return "malformed";
    case Fate::OverLimit: return "over-limit";
    case Fate::Failed: break;
    }
    return "failed";
}

std::string_view toWord(FileRole role) noexcept {
    switch (role) {
    case FileRole::Resources: return "resources";
    case FileRole::Lookup: return "lookup";
    case FileRole::Package: break;
    }
    return "package";
}

std::string_view toWord(SectionFate fate) noexcept {
    switch (fate) {
    case SectionFate::New: return "new";
    case SectionFate::Overlay: return "overlay";
    case SectionFate::Merged: return "merged";
    case SectionFate::KeyTaken: return "key-taken";
    case SectionFate::Unused: break;
    }
    return "unused";
}

std::string_view toWord(RecordFate fate) noexcept {
    switch (fate) {
    case RecordFate::AddedName: return "added-name";
    case RecordFate::AddedHref: return "added-href";
    case RecordFate::DroppedHref: return "dropped-href";
    case RecordFate::DroppedCount: return "dropped-count";
    case RecordFate::Replaced: break;
    }
    return "replaced";
}

} // namespace reference::docparser
