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

/// A host application with answers chosen by a test. It records each call.
///
/// Set the answers before the library can call the host; after that, any thread may call it. A hook
/// runs during the call, on the calling thread, and may throw or block.
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

    /// Sets the short names of the installed top-level products.
    void install(const std::vector<std::string>& shortNames);

    /// Returns all calls so far, in order: "language", "languages", "products", "package root", or
    /// "packages below " followed by the folder.
    std::vector<std::string> questions() const;

    /// Returns how often a question was asked.
    long count(std::string_view question) const;

    /// Clears the list of questions and releases its memory.
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

/// Returns a catalogue record with this short name. Its other strings are empty.
std::shared_ptr<const docproduct::TopLevelDocProduct> makeProduct(const std::string& shortName);

} // namespace docparser_tests
