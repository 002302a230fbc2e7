#include "docparser/shared/DiagnosticChannel.hpp"

namespace reference::docparser {

foundation::log::diagnostic_logger& docParserLog() {
    static foundation::log::diagnostic_logger log("referenceApi::docparser");
    return log;
}

namespace {

[[maybe_unused]] const foundation::log::diagnostic_logger& builtAtLoad = docParserLog();

} // namespace

void writeDiagnostic(int severity, std::string_view prefix, const std::u16string& subject) {
    docParserLog().write(severity, prefix, subject);
}

} // namespace reference::docparser
