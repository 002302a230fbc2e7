#pragma once

#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>

namespace refdoc::site {

/// Chooses names for the files and folders of one folder, such that any system can store them and
/// no two of them are the same where letter case does not matter.
///
/// Characters that some systems refuse are percent-encoded, and long names are cut. A name that is
/// taken gets a number: "smooth~2.html". The result depends only on the calls and their order.
class FileNames {
public:
    /// \param reserved  names that add... functions never return; case does not matter
    explicit FileNames(std::initializer_list<std::string_view> reserved);

    /// Returns the name of a new folder, without a slash.
    std::string addFolder(const std::u16string& name);

    /// Returns the path of a new page: a slash separates folders, and pages may share these. The
    /// name ends with ".html" or ".htm".
    std::string addPage(const std::u16string& href);

private:
    enum class Type { Page, Folder, SharedFolder };

    struct Use {
        Type type;
        std::size_t nextNumber = 2;
    };

    std::string take(std::string path, Type type);

    std::map<std::u16string, Use> taken_; // by path without differences of case
};

} // namespace refdoc::site
