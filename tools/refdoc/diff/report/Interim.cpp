#include "tools/refdoc/diff/report/DiffOutput.hpp"

#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>

namespace refdoc::diff {

namespace {

class Lines : public DiffOutput {
public:
    std::string product(const ProductChanges& product) const override {
        std::string text;
        for (const Change& change : product.changes) {
            boost::json::object line{
                {"id", toWord(change.id)},   {"class", toWord(change.changeClass)},
                {"product", change.product}, {"section", change.section},
                {"href", change.href},       {"field", change.field},
                {"old", change.oldValue},    {"new", change.newValue}};
            text += boost::json::serialize(line) + "\n";
        }
        return text;
    }
    std::string tail(const Summary& summary) const override {
        return std::to_string(summary.total()) + " changes\n";
    }
};

} // namespace

std::unique_ptr<DiffOutput> textOutput(const PageSetup&) {
    return std::make_unique<Lines>();
}
std::unique_ptr<DiffOutput> jsonOutput() {
    return std::make_unique<Lines>();
}
std::unique_ptr<DiffOutput> jsonLinesOutput() {
    return std::make_unique<Lines>();
}
std::unique_ptr<DiffOutput> markdownOutput() {
    return std::make_unique<Lines>();
}

} // namespace refdoc::diff
