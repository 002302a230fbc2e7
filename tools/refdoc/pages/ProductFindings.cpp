#include "tools/refdoc/pages/ProductFindings.hpp"

#include <string_view>

namespace refdoc::site {

namespace {

// "/supportPackages/0/refItems/3/inputs/1" -> "/supportPackages/0/refItems/3"; empty if the value
// is in no record.
std::string recordOf(std::string_view pointer) {
    constexpr std::string_view kList = "/refItems/";
    const std::size_t list = pointer.find(kList);
    if (list == pointer.npos)
        return {};
    return std::string(pointer.substr(0, pointer.find('/', list + kList.size())));
}

} // namespace

ProductFindings::ProductFindings(std::vector<check::ReportedFinding> findings)
    : all_(std::move(findings)) {
    for (std::size_t index = 0; index < all_.size(); ++index) {
        const check::ReportedLocation& location = all_[index].location;
        if (location.pointer)
            byRecord_[location.file->source.path][recordOf(*location.pointer)].push_back(index);
    }
}

void ProductFindings::addAt(const reference::docparser::FileAccount& file,
                            const std::string& pointer,
                            std::vector<check::ReportedFinding>& findings) const {
    const auto records = byRecord_.find(file.path);
    if (records == byRecord_.end())
        return;
    const auto found = records->second.find(pointer);
    if (found == records->second.end())
        return;
    for (const std::size_t index : found->second)
        findings.push_back(all_[index]);
}

} // namespace refdoc::site
