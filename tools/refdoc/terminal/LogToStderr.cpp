#include "tools/refdoc/terminal/LogToStderr.hpp"

#include "platform/log/DiagnosticLogger.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"

#include <boost/log/attributes/value_extraction.hpp>
#include <boost/log/expressions/message.hpp>
#include <boost/log/utility/formatting_ostream.hpp>
#include <boost/log/utility/setup/console.hpp>

#include <iostream>

namespace refdoc {

namespace log = boost::log;

void logToStandardError() {
    const auto writeLine = [](const log::record_view& record, log::formatting_ostream& line) {
        const auto severity = log::extract<int>("Severity", record);
        const auto text = log::extract<std::string>("Message", record);
        line << '[' << severity.get<int>() << "] " << visibleLine(text.get<std::string>());
    };
    log::add_console_log(std::cerr, log::keywords::format = writeLine,
                         log::keywords::auto_flush = true);
    foundation::log::setSeverityMask(foundation::log::kSeverityTrace |
                                     foundation::log::kSeverityProblem);
}

} // namespace refdoc
