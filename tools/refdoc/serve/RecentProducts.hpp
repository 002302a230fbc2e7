#pragma once

#include "tools/refdoc/pages/SiteModel.hpp"

#include <list>
#include <memory>
#include <string>

namespace refdoc::serve {

/// The products that were used last. Not thread-safe.
class RecentProducts {
public:
    /// \param limit  the number of products that are kept
    explicit RecentProducts(std::size_t limit) : limit_(limit) {}

    /// Returns a product, and makes it the one that was used last; null if it is not kept.
    std::shared_ptr<const site::Product> find(const std::u16string& name);

    /// Adds a product that is not kept yet.
    void add(const std::u16string& name, std::shared_ptr<const site::Product> product);

    void remove(const std::u16string& name);

private:
    struct Entry {
        std::u16string name;
        std::shared_ptr<const site::Product> product;
    };

    std::size_t limit_;
    std::list<Entry> entries_; // the one that was used last comes first
};

} // namespace refdoc::serve
