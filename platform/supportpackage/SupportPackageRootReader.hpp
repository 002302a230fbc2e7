#pragma once

#include "platform/Export.hpp"

#include <string>

namespace supportpackage {

/// Tells where support packages are installed.
class DOCPARSER_PLATFORM_EXPORT SupportPackageRootReader {
public:
    /// The support-package root in UTF-16, which may be empty or not exist; it is never created.
    /// \throws whatever the host throws
    std::u16string getSupportPackageRootNoCreate() const;
};

} // namespace supportpackage
