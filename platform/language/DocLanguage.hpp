#pragma once

#include "platform/Export.hpp"

#include <string>
#include <vector>

namespace doclanguage {

/// The documentation language service: which language documentation is shown in.
///
/// It keeps no state; the host is asked at each call, and whatever it throws passes through.
class DOCPARSER_PLATFORM_EXPORT DocLanguage {
public:
    /// The one service of the process; it lives as long. Any thread may call.
    static DocLanguage& getInstance();

    /// The code of the current documentation language, just as the host spells it ("en").
    std::u16string getDocLanguage() const;

    /// The codes of all languages that documentation can be shown in, English included, in the
    /// host's order.
    std::vector<std::u16string> getSupportedDocLanguages() const;

private:
    DocLanguage() = default;
};

} // namespace doclanguage
