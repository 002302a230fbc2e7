#include "tests/linkage/Plugin.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"

#include <string>

#define PLUGIN_EXPORT __attribute__((visibility("default")))

namespace docparser_tests::plugin {

namespace {

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;

template <class Type>
bool isCaughtAs(void (*function)()) {
    try {
        function();
    } catch (const Type& caught) {
        const auto* exception = dynamic_cast<const DocParserException*>(&caught);
        return exception && exception->getProductName() == u"Absent";
    }
    return false;
}

} // namespace

extern "C" PLUGIN_EXPORT void throwForAbsentProduct() {
    DocResourceParser::getResourceFile(u"Absent");
}

extern "C" PLUGIN_EXPORT bool catchAs(CaughtAs type, void (*function)()) {
    switch (type) {
    case CaughtAs::DocParserException: return isCaughtAs<DocParserException>(function);
    case CaughtAs::IInternalException:
        return isCaughtAs<foundation::core::except::IInternalException>(function);
    case CaughtAs::IException: return isCaughtAs<foundation::core::except::IException>(function);
    case CaughtAs::BoostException: return isCaughtAs<boost::exception>(function);
    case CaughtAs::CloneBase: return isCaughtAs<boost::exception_detail::clone_base>(function);
    }
    return false;
}

extern "C" PLUGIN_EXPORT unsigned long countSections(const char* root) {
    if (root) {
        const std::string bytes = root;
        DocResourceParser::setReferenceRoot(std::u16string(bytes.begin(), bytes.end()));
    }
    try {
        return DocResourceParser::getResourceFile(u"Orchard").size();
    } catch (const DocParserException&) {
        return 0;
    }
}

} // namespace docparser_tests::plugin
