#include "docparser/shared/DiagnosticChannel.hpp"

#include "platform/i18n/Converter.hpp"
#include "platform/log/DiagnosticLogger.hpp"

#include <boost/log/core/core.hpp>
#include <boost/log/sources/record_ostream.hpp>

#include <cstdint>
#include <utility>

namespace reference::docparser {

namespace {

using DiagnosticLogger = foundation::log::basic_diagnostic_logger<char>;

// The other bits of a severity and of the mask never enable a message.
constexpr std::uint32_t kSeverityBits = 0x7fff;

DiagnosticLogger& docParserLog() {
    static DiagnosticLogger log("referenceApi::docparser");
    return log;
}

// Constructs the logger when the library is loaded, unless an operation was called earlier.
[[maybe_unused]] const DiagnosticLogger& constructedAtLoad = docParserLog();

} // namespace

void writeDiagnostic(int severity, std::string_view prefix, const std::u16string& subject) {
    DiagnosticLogger& log = docParserLog();
    if ((log.mask() & static_cast<std::uint32_t>(severity) & kSeverityBits) == 0)
        return;
    boost::log::record record = log.open_record(severity);
    if (!record)
        return;
    boost::log::record_ostream line(record);
    line << prefix << fl::i18n::to_string(subject);
    line.flush();
    boost::log::core::get()->push_record(std::move(record));
}

} // namespace reference::docparser
