#pragma once

#include <docparser/Queries.hpp>
#include <docparser/account/LoadAccount.hpp>

#include <string>
#include <vector>

/// A page that documents a name.
struct Page {
    std::u16string productName;          ///< to show, in the language of the page
    bool isInstalled;                    ///< whether the user can open the product
    reference::property::RefItem record; ///< everything that the page is made of
};

/// The lookup index, kept because reading it takes much longer than finding a name.
class HelpIndex {
public:
    /// Reads the index in the current language. An application calls this on a thread of its own,
    /// at the start and whenever the language or the installed products change.
    static HelpIndex read();

    /// Returns the full records of all items with a name, those of installed products first.
    std::vector<Page> pagesFor(const std::u16string& name) const;

    /// Returns a line for each file that could not be used, with the reason.
    std::vector<std::string> problems() const;

private:
    reference::docparser::LookupIndex index_;
    reference::docparser::LoadAccount account_;
};
