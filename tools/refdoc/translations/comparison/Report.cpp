#include "tools/refdoc/translations/comparison/Report.hpp"

#include <algorithm>

namespace refdoc::translations {

std::string_view toWord(Defect defect) noexcept {
    switch (defect) {
    case Defect::Missing: return "missing";
    case Defect::Orphaned: return "orphaned";
    case Defect::Identical: return "identical";
    case Defect::OutOfStep: return "outOfStep";
    case Defect::Dropped: break;
    }
    return "dropped";
}

std::size_t Comparison::count(Defect defect) const noexcept {
    return static_cast<std::size_t>(std::ranges::count(entries, defect, &Entry::defect));
}

void Counts::add(const Comparison& comparison) noexcept {
    english += comparison.english;
    translated += comparison.translated;
    for (const Entry& entry : comparison.entries)
        ++defects[static_cast<std::size_t>(entry.defect)];
}

std::size_t Counts::share() const noexcept {
    return english == 0 ? 1000 : translated * 1000 / english;
}

std::vector<Totals> totalsOf(const Report& report) {
    std::vector<Totals> totals(report.languages.size());
    for (const ProductReport& product : report.products) {
        for (std::size_t index = 0; index < totals.size(); ++index) {
            totals[index].items.add(product.languages[index].items);
            totals[index].lookup.add(product.languages[index].lookup);
        }
    }
    return totals;
}

} // namespace refdoc::translations
