#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/shared/LoadAccount.hpp"

#include <string>

namespace reference::docparser {

/// Tells an account how a product's language file goes over its English file. The two are the last
/// files of the account, the English one first. Without an account it does nothing.
class OverlayAccount {
public:
    explicit OverlayAccount(LoadAccount* account) noexcept;

    /// The language file alone has the section.
    void added(const std::u16string& key);

    /// Both have the section.
    /// \param replaced  the English items that are dropped, by href
    void overlaid(const std::u16string& key, const DocResource<property::RefItem>::Items& replaced);

private:
    LoadAccount* account_;
};

} // namespace reference::docparser
