#include "tools/refdoc/check/rules/Consequences.hpp"

#include "tools/refdoc/check/rules/NameRules.hpp"
#include "tools/refdoc/check/text/JsonLexer.hpp"

#include <algorithm>
#include <filesystem>
#include <set>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace refdoc::check {

namespace {

bool isInLookupFolder(const SourceFile& file) {
    return std::filesystem::path(file.path).parent_path().filename() == "referenceapi_lookup";
}

// What the damaged files of one type were about.
struct Damage {
    std::set<std::u16string> products;
    std::unordered_set<std::string> strings; // in the texts of the files, without their quotes

    void add(std::u16string product, std::string_view text) {
        products.insert(std::move(product));
        JsonLexer lexer(text);
        for (Token token = lexer.next(); token.type != TokenType::End; token = lexer.next()) {
            if (token.type == TokenType::String)
                strings.emplace(text.substr(token.begin + 1, token.end - token.begin - 2));
        }
    }

    // Returns whether a text has a part of the path as a string, such as the help folder of the
    // product that a link leads to.
    bool mentionsPartOf(std::string_view path) const {
        while (!path.empty()) {
            const std::string part(path.substr(0, path.find('/')));
            path.remove_prefix(std::min(part.size() + 1, path.size()));
            if (!part.empty() && strings.contains(part))
                return true;
        }
        return false;
    }
};

bool isCause(const Finding& finding) {
    return finding.rule->severity == Severity::Error && finding.rule->relation == Relation::None;
}

class ConsequenceFilter {
public:
    ConsequenceFilter(const std::vector<std::u16string>& languages, SourceTexts& texts,
                      const Findings& findings)
        : languages_(languages) {
        for (const auto& [file, found] : findings) {
            const auto cause = std::ranges::find_if(found, isCause);
            if (cause == found.end())
                continue;
            // Without a position, the library has not read the file: it may be too large.
            (isInLookupFolder(file) ? lookups_ : resources_)
                .add(productNameOf(file, languages),
                     cause->location.position ? texts.read(file) : std::string());
        }
    }

    bool isConsequence(const SourceFile& file, const Finding& finding) const {
        switch (finding.rule->relation) {
        case Relation::None:
        case Relation::Independent: return false;
        case Relation::FollowsFromResources: return followsFrom(resources_, file, finding);
        case Relation::FollowsFromLookups: return followsFrom(lookups_, file, finding);
        case Relation::FollowsFromAny:
            return followsFrom(resources_, file, finding) || followsFrom(lookups_, file, finding);
        }
        return false;
    }

private:
    bool followsFrom(const Damage& damage, const SourceFile& file, const Finding& finding) const {
        // The identity ends with the link or the name that the finding is about.
        const std::string_view identity = finding.identity;
        return damage.products.contains(productNameOf(file, languages_)) ||
               damage.mentionsPartOf(identity.substr(identity.rfind('\n') + 1));
    }

    const std::vector<std::u16string>& languages_;
    Damage resources_;
    Damage lookups_;
};

} // namespace

std::size_t removeConsequences(const std::vector<std::u16string>& languages, SourceTexts& texts,
                               Findings& findings) {
    const ConsequenceFilter filter(languages, texts, findings);
    std::size_t count = 0;
    for (auto& [file, found] : findings)
        count += std::erase_if(found, [&source = file, &filter](const Finding& finding) {
            return filter.isConsequence(source, finding);
        });
    return count;
}

} // namespace refdoc::check
