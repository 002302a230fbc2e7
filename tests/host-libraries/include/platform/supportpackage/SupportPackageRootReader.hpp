#pragma once

#include <string>

namespace supportpackage {

class SupportPackageRootReader {
public:
    std::u16string getSupportPackageRootNoCreate() const;
};

} // namespace supportpackage
