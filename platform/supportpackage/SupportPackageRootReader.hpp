#pragma once

#include "platform/Export.hpp"

#include <string>

namespace supportpackage {

/// Reports where support packages are installed.
class DOCPARSER_PLATFORM_EXPORT SupportPackageRootReader {
public:
    /// Returns the support-package root, which may be empty; the folder is never created.
    /// \throws whatever the host application throws
    std::u16string getSupportPackageRootNoCreate() const;
};

} // namespace supportpackage
