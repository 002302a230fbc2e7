#include "ChannelListener.hpp"

#include <platform/log/DiagnosticLogger.hpp>

#include <boost/log/attributes/value_extraction.hpp>
#include <boost/log/core/core.hpp>
#include <boost/log/core/record_view.hpp>
#include <boost/log/expressions.hpp>
#include <boost/log/sinks/basic_sink_backend.hpp>
#include <boost/log/sinks/sync_frontend.hpp>
#include <boost/smart_ptr/make_shared_object.hpp>

#include <iostream>
#include <string>

namespace logging = boost::log;

using foundation::log::kSeverityProblem;
using foundation::log::kSeverityTrace;

namespace {

struct Backend : logging::sinks::basic_sink_backend<logging::sinks::synchronized_feeding> {
    // Called on the reading thread, one record at a time, while the frontend holds its lock.
    void consume(const logging::record_view& record) {
        const std::string text =
            logging::extract_or_default<std::string>("Message", record, std::string());
        const int severity = logging::extract_or_default<int>("Severity", record, 0);
        if (severity == kSeverityProblem)
            std::cerr << "problem: " << text << '\n';
        else if (text.starts_with("Reading file: "))
            ++filesTried;
    }

    std::size_t filesTried = 0;
};

} // namespace

struct ChannelListener::Sink {
    boost::shared_ptr<logging::sinks::synchronous_sink<Backend>> frontend =
        boost::make_shared<logging::sinks::synchronous_sink<Backend>>();
};

ChannelListener::ChannelListener() : sink_(std::make_unique<Sink>()) {
    // Other parts of the application may log to the same core.
    sink_->frontend->set_filter(logging::expressions::attr<std::string>("Channel") ==
                                "referenceApi::docparser");
    logging::core::get()->add_sink(sink_->frontend);

    // Last, because records without a sink would be written to standard output.
    foundation::log::setSeverityMask(kSeverityTrace | kSeverityProblem);
}

ChannelListener::~ChannelListener() {
    foundation::log::setSeverityMask(0);
    logging::core::get()->remove_sink(sink_->frontend);
}

std::size_t ChannelListener::filesTried() const {
    return sink_->frontend->locked_backend()->filesTried;
}
