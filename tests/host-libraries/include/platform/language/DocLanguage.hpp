#pragma once

#include <string>
#include <vector>

namespace doclanguage {

class DocLanguage {
public:
    static DocLanguage& getInstance();

    std::u16string getDocLanguage() const;
    std::vector<std::u16string> getSupportedDocLanguages() const;
};

} // namespace doclanguage
