#include "tests/support/LogCallback.hpp"

#include "platform/log/DiagnosticLogger.hpp"

#include <boost/log/attributes/value_extraction.hpp>
#include <boost/log/core/core.hpp>
#include <boost/log/core/record_view.hpp>
#include <boost/log/sinks/basic_sink_backend.hpp>
#include <boost/log/sinks/unlocked_frontend.hpp>
#include <boost/smart_ptr/make_shared_object.hpp>

#include <utility>

namespace docparser_tests {

namespace {

struct Backend : boost::log::sinks::basic_sink_backend<boost::log::sinks::concurrent_feeding> {
    void consume(const boost::log::record_view& record) const {
        function(boost::log::extract_or_default<std::string>("Message", record, std::string()));
    }

    LogCallback::Function function;
};

} // namespace

struct LogCallback::Sink {
    boost::shared_ptr<boost::log::sinks::unlocked_sink<Backend>> frontend =
        boost::make_shared<boost::log::sinks::unlocked_sink<Backend>>(
            boost::make_shared<Backend>());
};

LogCallback::LogCallback(Function function) : sink_(std::make_unique<Sink>()) {
    sink_->frontend->locked_backend()->function = std::move(function);
    boost::log::core::get()->add_sink(sink_->frontend);
    foundation::log::setSeverityMask(528);
}

LogCallback::~LogCallback() {
    foundation::log::setSeverityMask(0);
    boost::log::core::get()->remove_sink(sink_->frontend);
}

} // namespace docparser_tests
