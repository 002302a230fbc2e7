// Answers names as a help system does, first in English, then in German:
// help_lookup INSTALL-FOLDER NAME...

#include <platform/InstallationManifest.hpp>

#include "ChosenLanguage.hpp"
#include "HelpIndex.hpp"

#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

using reference::docparser::DocResourceParser;
using reference::docparser::fromPath;
using reference::docparser::fromUtf8;
using reference::docparser::toUtf8;

namespace {

void showPage(const Page& page) {
    std::cout << "  " << toUtf8(page.productName) << (page.isInstalled ? "" : " (not installed)")
              << ": " << toUtf8(page.record.getRefPurpose()) << '\n';
    for (const auto& group : page.record.getSyntaxGroups()) {
        for (const std::u16string& syntax : group.getSyntaxes())
            std::cout << "    " << toUtf8(syntax) << '\n';
    }
}

void answer(const HelpIndex& index, const std::string& name) {
    const std::vector<Page> pages = index.pagesFor(fromUtf8(name));
    std::cout << name << (pages.empty() ? ": no page" : "") << '\n';
    for (const Page& page : pages)
        showPage(page);
}

void run(const std::filesystem::path& installFolder, const std::vector<std::string>& names) {
    const auto services = std::make_shared<ChosenLanguage>(
        std::make_shared<platform::InstallationManifest>(fromPath(installFolder)));
    platform::setHostServices(services);
    DocResourceParser::setReferenceRoot(fromPath(installFolder / "help"));

    HelpIndex index = HelpIndex::read();
    for (const std::string& name : names)
        answer(index, name);

    services->choose(u"de");
    index = HelpIndex::read();
    for (const std::string& name : names)
        answer(index, name);

    for (const std::string& problem : index.problems())
        std::cout << "not used: " << problem << '\n';
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 3) {
        std::cerr << "usage: help_lookup INSTALL-FOLDER NAME...\n";
        return 2;
    }
    try {
        run(argv[1], {argv + 2, argv + argc});
    } catch (const std::exception& failure) {
        std::cerr << "help_lookup: " << failure.what() << '\n';
        return 3;
    }
}
