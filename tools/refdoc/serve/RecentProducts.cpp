#include "tools/refdoc/serve/RecentProducts.hpp"

#include <algorithm>
#include <utility>

namespace refdoc::serve {

std::shared_ptr<const site::Product> RecentProducts::find(const std::u16string& name) {
    const auto entry = std::ranges::find(entries_, name, &Entry::name);
    if (entry == entries_.end())
        return nullptr;
    entries_.splice(entries_.begin(), entries_, entry);
    return entry->product;
}

void RecentProducts::add(const std::u16string& name, std::shared_ptr<const site::Product> product) {
    entries_.push_front({name, std::move(product)});
    if (entries_.size() > limit_)
        entries_.pop_back();
}

void RecentProducts::remove(const std::u16string& name) {
    entries_.remove_if([&](const Entry& entry) { return entry.name == name; });
}

} // namespace refdoc::serve
