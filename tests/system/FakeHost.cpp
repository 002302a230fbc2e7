#include "tests/system/FakeHost.hpp"

#include "platform/i18n/Converter.hpp"
#include "tests/support/NativeText.hpp"

#include <algorithm>
#include <utility>

namespace docparser_tests {

using docproduct::TopLevelDocProduct;

void FakeHost::install(const std::vector<std::string>& shortNames) {
    products.clear();
    for (const std::string& shortName : shortNames)
        products.push_back(makeProduct(shortName));
}

std::vector<std::string> FakeHost::questions() const {
    const std::lock_guard lock(mutex_);
    return questions_;
}

long FakeHost::count(std::string_view question) const {
    const std::lock_guard lock(mutex_);
    return static_cast<long>(std::ranges::count(questions_, question));
}

void FakeHost::forgetQuestions() {
    const std::lock_guard lock(mutex_);
    questions_ = {};
}

void FakeHost::ask(std::string question, const std::function<void()>& hook) const {
    {
        const std::lock_guard lock(mutex_);
        questions_.push_back(std::move(question));
    }
    if (hook)
        hook();
}

std::u16string FakeHost::installPath() const {
    return u"/no/such/installation";
}

std::u16string FakeHost::docLanguage() const {
    ask("language", onLanguage);
    return language;
}

std::vector<std::u16string> FakeHost::supportedDocLanguages() const {
    ask("languages", {});
    return languages;
}

std::vector<std::shared_ptr<const TopLevelDocProduct>>
FakeHost::installedTopLevelDocProducts() const {
    ask("products", onProducts);
    return products;
}

std::u16string FakeHost::supportPackageRoot() const {
    ask("package root", onPackageRoot);
    return packageRoot;
}

std::unordered_set<std::u16string>
FakeHost::installedHardwareSupportPackages(const std::u16string& root) const {
    ask("packages below " + fl::i18n::to_string(portable(root)), onPackages);
    return packages;
}

std::shared_ptr<const TopLevelDocProduct> makeProduct(const std::string& shortName) {
    return std::make_shared<const TopLevelDocProduct>("", "", shortName, "", "", "",
                                                      std::vector<docproduct::ProductFamily>());
}

} // namespace docparser_tests
