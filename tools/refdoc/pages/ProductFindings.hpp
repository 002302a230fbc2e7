#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/report/Report.hpp"

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace refdoc::site {

/// The findings of `check` in the files of one product.
class ProductFindings {
public:
    ProductFindings() = default;
    explicit ProductFindings(std::vector<check::ReportedFinding> findings);

    const std::vector<check::ReportedFinding>& all() const noexcept { return all_; }

    /// Adds to `findings` those at a record, and at values in it.
    /// \param pointer  to the record, an element of "refItems"
    void addAt(const reference::docparser::FileAccount& file, const std::string& pointer,
               std::vector<check::ReportedFinding>& findings) const;

private:
    std::vector<check::ReportedFinding> all_;
    // Indices of all_ by the path of the file and the pointer to the record.
    std::map<std::u16string, std::map<std::string, std::vector<std::size_t>>> byRecord_;
};

} // namespace refdoc::site
