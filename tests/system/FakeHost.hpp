#pragma once

#include "platform/HostServices.hpp"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace docparser_tests {

/// A host whose answers a test chooses, and which counts what it is asked.
///
/// What it answers is set before the library may ask; after that any thread may ask it. Each hook
/// runs in the middle of a question, on the asking thread, and may throw or wait.
class FakeHost : public platform::HostServices {
public:
    using Packages = std::unordered_set<std::u16string>;

    std::u16string language = u"en";
    std::vector<std::u16string> languages = {u"en"};
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>> products;
    std::u16string packageRoot = u"/no/such/support";
    Packages packages;

    std::function<void()> onLanguage;
    std::function<void()> onProducts;
    std::function<void()> onPackageRoot;
    std::function<void()> onPackages;

    /// Names the installed top-level products.
    void install(const std::vector<std::string>& shortNames);

    /// Every question so far in its order, as "language", "languages", "products", "package root"
    /// or "packages below " and the folder.
    std::vector<std::string> questions() const;

    /// How often a question was asked.
    long count(std::string_view question) const;

    /// Makes as if nothing had been asked, and gives the memory of the questions back.
    void forgetQuestions();

    std::u16string installPath() const override;
    std::u16string docLanguage() const override;
    std::vector<std::u16string> supportedDocLanguages() const override;
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override;
    std::u16string supportPackageRoot() const override;
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string& root) const override;

private:
    void ask(std::string question, const std::function<void()>& hook) const;

    mutable std::mutex mutex_; // guards questions_; never held while a hook runs
    mutable std::vector<std::string> questions_;
};

/// A catalogue record of this short name whose other texts are empty.
std::shared_ptr<const docproduct::TopLevelDocProduct> makeProduct(const std::string& shortName);

} // namespace docparser_tests
