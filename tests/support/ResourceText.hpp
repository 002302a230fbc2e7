#pragma once

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace docparser_tests {

/// An element of "refItems" of a full resource file, with only the required keys.
/// \param href        ASCII
/// \param refPurpose  UTF-8
inline boost::json::object item(std::string_view href, std::string_view refPurpose) {
    return {{"href", href}, {"refpurpose", refPurpose}};
}

/// An element of "refItems" of a lookup file, with only the required keys.
inline boost::json::object lookupItem(std::string_view name, std::string_view href,
                                      std::string_view refPurpose) {
    return {{"name", name}, {"href", href}, {"refpurpose", refPurpose}};
}

/// Builds the JSON text of a resource file, or of a section of its "supportPackages".
///
/// The other strings of the header are derived from the help folder, so that different sections
/// have different headers: for help folder "orchard" the product name is "orchard name", the base
/// code "orchard code" and the help location "orchard/help".
class ResourceText {
public:
    explicit ResourceText(std::string_view helpFolder) {
        const std::string folder(helpFolder);
        root_["productName"] = folder + " name";
        root_["baseCode"] = folder + " code";
        root_["helpFolder"] = folder;
        root_["helpLocation"] = folder + "/help";
        root_["refItems"] = boost::json::array();
    }

    /// Sets a key of the section and replaces any existing value.
    ResourceText& set(std::string_view key, boost::json::value value) {
        root_[key] = std::move(value);
        return *this;
    }

    /// Appends an element to "refItems".
    ResourceText& add(boost::json::object element) {
        root_["refItems"].as_array().push_back(std::move(element));
        return *this;
    }

    /// Appends a section to "supportPackages".
    ResourceText& addSupportPackage(const ResourceText& section) {
        boost::json::value& packages = root_["supportPackages"];
        if (packages.is_null())
            packages = boost::json::array();
        packages.as_array().push_back(section.root_);
        return *this;
    }

    /// The text of the file.
    std::string str() const { return boost::json::serialize(root_); }

private:
    boost::json::object root_;
};

/// The text of a full resource file with these items, each an href and a purpose.
inline std::string
resourceText(std::string_view helpFolder,
             const std::vector<std::pair<std::string_view, std::string_view>>& hrefsAndPurposes) {
    ResourceText text(helpFolder);
    for (const auto& [href, purpose] : hrefsAndPurposes)
        text.add(item(href, purpose));
    return text.str();
}

} // namespace docparser_tests
