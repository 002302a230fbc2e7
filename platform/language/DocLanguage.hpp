#pragma once

#include "platform/Export.hpp"

#include <string>
#include <vector>

namespace doclanguage {

/// The documentation language service.
///
/// Keeps no state; each call asks the host application and passes its exceptions on.
class DOCPARSER_PLATFORM_EXPORT DocLanguage {
public:
    /// Returns the only service, which lives as long as the process. Any thread may call.
    static DocLanguage& getInstance();

    /// Returns the current documentation language as the host application spells it: "en".
    std::u16string getDocLanguage() const;

    /// Returns all languages that documentation can be shown in, English included, in the order of
    /// the host application.
    std::vector<std::u16string> getSupportedDocLanguages() const;

private:
    DocLanguage() = default;
};

} // namespace doclanguage
