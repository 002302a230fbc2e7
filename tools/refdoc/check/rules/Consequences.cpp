#include "tools/refdoc/check/rules/Consequences.hpp"

#include "tools/refdoc/check/rules/NameRules.hpp"
#include "tools/refdoc/check/text/JsonLexer.hpp"

#include <algorithm>
#include <filesystem>
#include <map>
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
    bool isTotal = false; // anything may be missing
    std::set<std::u16string> products;
    std::unordered_set<std::string> strings; // in the texts of the files, without their quotes

    void add(const std::u16string& product, std::string_view text) {
        products.insert(product);
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
    switch (finding.rule->relation) {
    case Relation::None: return finding.rule->severity == Severity::Error;
    case Relation::CostsProduct:
    case Relation::MisnamesProduct:
    case Relation::CostsRoot: return true;
    case Relation::Independent:
    case Relation::FollowsFromResources:
    case Relation::FollowsFromLookups:
    case Relation::FollowsFromAny: return false;
    }
    return false;
}

class ConsequenceFilter {
public:
    ConsequenceFilter(const std::vector<std::u16string>& languages, SourceTexts& texts,
                      const Findings& findings)
        : languages_(languages) {
        for (const auto& [file, found] : findings) {
            std::map<Relation, const Finding*> causes; // one of each type
            for (const Finding& finding : found) {
                if (isCause(finding))
                    causes.emplace(finding.rule->relation, &finding);
            }
            for (const auto& [relation, cause] : causes)
                addDamage(file, *cause, texts);
        }
    }

    bool isConsequence(const SourceFile& file, const Finding& finding) const {
        switch (finding.rule->relation) {
        case Relation::None:
        case Relation::CostsProduct:
        case Relation::MisnamesProduct:
        case Relation::CostsRoot:
        case Relation::Independent: return false;
        case Relation::FollowsFromResources: return followsFrom(resources_, file, finding);
        case Relation::FollowsFromLookups: return followsFrom(lookups_, file, finding);
        case Relation::FollowsFromAny:
            return followsFrom(resources_, file, finding) || followsFrom(lookups_, file, finding);
        }
        return false;
    }

private:
    void addDamage(const SourceFile& file, const Finding& cause, SourceTexts& texts) {
        const Relation relation = cause.rule->relation;
        if (relation == Relation::CostsRoot) {
            lookups_.isTotal = resources_.isTotal = true;
            return;
        }
        const bool costsBoth = relation != Relation::None;
        const std::u16string product = productNameOf(file, languages_);
        // Without a position, the library has not read the file: it may be too large.
        const bool hasText = cause.location.position || relation == Relation::CostsProduct;
        const std::string text = hasText ? texts.read(file) : std::string();
        const bool isLookup = isInLookupFolder(file);
        if (isLookup || costsBoth)
            lookups_.add(product, text);
        if (!isLookup || costsBoth)
            resources_.add(product, text);
    }

    bool followsFrom(const Damage& damage, const SourceFile& file, const Finding& finding) const {
        if (damage.isTotal)
            return true;
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
