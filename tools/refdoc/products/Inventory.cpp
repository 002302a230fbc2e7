#include "tools/refdoc/products/Inventory.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "docparser/account/LoadAccount.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"
#include "tools/refdoc/session/Languages.hpp"

#include <optional>
#include <set>

namespace refdoc {

using fl::i18n::to_ustring;
using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
using reference::docparser::Fate;
using reference::docparser::LoadAccount;
using Tools = DocResourceParser::ParsingTools;

namespace {

// The usable file of a product in one language.
struct Content {
    std::size_t records = 0;
    bool isInReferenceRoot = false;
};

class InventoryTaker {
public:
    Inventory take() {
        Inventory inventory;
        for (const auto& [product, languages] : languagesByProduct())
            inventory.products.push_back(productInventory(product, languages));
        inventory.undocumented = undocumented();
        return inventory;
    }

private:
    // The languages of the files that each product has. The order of the names puts English first.
    std::map<std::u16string, std::vector<std::u16string>> languagesByProduct() const {
        std::map<std::u16string, std::vector<std::u16string>> products;
        for (const std::u16string& name : fullFileNames()) {
            bool isTranslation = false;
            for (const std::u16string& language : languages_) {
                const std::u16string suffix = Tools::kLocaleSeparator + language;
                if (language == Tools::kEnglishLocale || !name.ends_with(suffix))
                    continue;
                products[name.substr(0, name.size() - suffix.size())].push_back(language);
                isTranslation = true;
            }
            if (!isTranslation)
                products[name].push_back(Tools::kEnglishLocale);
        }
        return products;
    }

    ProductInventory productInventory(const std::u16string& product,
                                      const std::vector<std::u16string>& languages) {
        ProductInventory result{.product = product};
        bool isEnglishInReferenceRoot = false;
        for (const std::u16string& language : languages) {
            const bool isEnglish = language == Tools::kEnglishLocale;
            std::u16string file = product;
            if (!isEnglish)
                file.append(1, Tools::kLocaleSeparator).append(language);
            const std::optional<Content> content = read(file);
            if (!content || (isEnglishInReferenceRoot && !content->isInReferenceRoot))
                continue;
            result.languages.push_back(language);
            if (isEnglish) {
                result.items = content->records;
                isEnglishInReferenceRoot = content->isInReferenceRoot;
            } else {
                result.translations[language] = content->records;
            }
        }
        return result;
    }

    // In English, a translation is the only file of a product of its own. Absent if unusable.
    std::optional<Content> read(const std::u16string& name) {
        const LanguageGuard english(Tools::kEnglishLocale);
        LoadAccount account;
        const LoadAccount::Scope scope(account);
        Content content;
        try {
            for (const auto& [key, resource] : DocResourceParser::getResourceFile(name)) {
                documented_.insert(key);
                for (const auto& [href, records] : resource.items)
                    content.records += records.size();
            }
        } catch (const DocParserException&) {
            return std::nullopt;
        }
        content.isInReferenceRoot = account.files.front().fate == Fate::Used;
        return content;
    }

    std::vector<std::u16string> undocumented() {
        std::set<std::u16string> names = installedNames();
        const auto isDocumented = [&](const auto& name) { return documented_.contains(name); };
        std::erase_if(names, isDocumented);
        if (!names.empty()) {
            addLookupSections();
            std::erase_if(names, isDocumented);
        }
        return {names.begin(), names.end()};
    }

    static std::set<std::u16string> installedNames() {
        const auto packages = DocResourceParser::getHardwareSupportPackages();
        std::set<std::u16string> names(packages->begin(), packages->end());
        const auto products = DocResourceParser::getTopLevelProducts();
        for (const auto& product : *products)
            names.insert(to_ustring(product->getShortName()));
        return names;
    }

    void addLookupSections() {
        for (const std::u16string& language : languages_) {
            const LanguageGuard guard(language);
            const auto index = DocResourceParser::getResourceLookupFiles();
            for (const auto* sections : {&index.installed, &index.notInstalled}) {
                for (const auto& [key, resource] : *sections)
                    documented_.insert(key);
            }
        }
    }

    std::vector<std::u16string> languages_ = allLanguages();
    std::set<std::u16string> documented_; // the keys of all sections
};

} // namespace

Inventory takeInventory() {
    return InventoryTaker().take();
}

} // namespace refdoc
