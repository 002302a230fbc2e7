#include "tools/refdoc/terminal/LogToStderr.hpp"

#include "platform/log/DiagnosticLogger.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"

#include <boost/core/null_deleter.hpp>
#include <boost/log/attributes/value_extraction.hpp>
#include <boost/log/core/core.hpp>
#include <boost/log/expressions/message.hpp>
#include <boost/log/sinks/sync_frontend.hpp>
#include <boost/log/sinks/text_ostream_backend.hpp>
#include <boost/log/utility/formatting_ostream.hpp>
#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <iostream>
#include <ostream>

namespace refdoc {

namespace log = boost::log;

void logToStandardError() {
    using Backend = log::sinks::text_ostream_backend;
    const auto backend = boost::make_shared<Backend>();
    backend->add_stream(boost::shared_ptr<std::ostream>(&std::cerr, boost::null_deleter()));
    backend->auto_flush(true);

    const auto sink = boost::make_shared<log::sinks::synchronous_sink<Backend>>(backend);
    sink->set_formatter([](const log::record_view& record, log::formatting_ostream& line) {
        const auto severity = log::extract<int>("Severity", record);
        const auto text = log::extract<std::string>("Message", record);
        line << '[' << severity.get<int>() << "] " << visibleLine(text.get<std::string>());
    });
    log::core::get()->add_sink(sink);
    foundation::log::setSeverityMask(foundation::log::kSeverityTrace |
                                     foundation::log::kSeverityProblem);
}

} // namespace refdoc
