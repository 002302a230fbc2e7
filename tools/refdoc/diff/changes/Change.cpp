#include "tools/refdoc/diff/changes/Change.hpp"

namespace refdoc::diff {

std::string_view toWord(ChangeId id) noexcept {
    switch (id) {
    case ChangeId::ProductAdded: return "product-added";
    case ChangeId::ProductRemoved: return "product-removed";
    case ChangeId::SectionAdded: return "section-added";
    case ChangeId::SectionRemoved: return "section-removed";
    case ChangeId::SectionChanged: return "section-changed";
    case ChangeId::ItemAdded: return "item-added";
    case ChangeId::ItemRemoved: return "item-removed";
    case ChangeId::ItemMoved: return "item-moved";
    case ChangeId::ItemChanged: return "item-changed";
    case ChangeId::LookupAdded: return "lookup-added";
    case ChangeId::LookupRemoved: return "lookup-removed";
    case ChangeId::LookupChanged: return "lookup-changed";
    }
    return {};
}

std::string_view toWord(ChangeClass changeClass) noexcept {
    switch (changeClass) {
    case ChangeClass::Breaking: return "breaking";
    case ChangeClass::Notable: return "notable";
    case ChangeClass::Textual: return "textual";
    }
    return {};
}

std::string_view toWord(Side side) noexcept {
    switch (side) {
    case Side::Old: return "old";
    case Side::New: return "new";
    case Side::Both: return "both";
    }
    return {};
}

} // namespace refdoc::diff
