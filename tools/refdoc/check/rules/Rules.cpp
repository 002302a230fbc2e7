#include "tools/refdoc/check/rules/Rules.hpp"

#include "tools/refdoc/check/rules/ContentRules.hpp"
#include "tools/refdoc/check/rules/CrossFileRules.hpp"
#include "tools/refdoc/check/rules/FileRules.hpp"
#include "tools/refdoc/check/rules/MergeRules.hpp"
#include "tools/refdoc/check/rules/NameRules.hpp"
#include "tools/refdoc/check/rules/SchemaRules.hpp"

#include <algorithm>
#include <vector>

namespace refdoc::check {

std::span<const Rule* const> rules() {
    static const std::vector<const Rule*> all = [] {
        std::vector<const Rule*> list;
        for (const auto& group : {contentRules(), schemaRules(), fileRules(), nameRules(),
                                  mergeRules(), crossFileRules()})
            list.insert(list.end(), group.begin(), group.end());
        return list;
    }();
    return all;
}

std::size_t indexOf(const Rule& rule) {
    return static_cast<std::size_t>(std::ranges::find(rules(), &rule) - rules().begin());
}

const Rule* findRule(std::string_view name) {
    const auto found = std::ranges::find(rules(), name, &Rule::name);
    return found == rules().end() ? nullptr : *found;
}

} // namespace refdoc::check
