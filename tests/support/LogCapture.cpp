#include "tests/support/LogCapture.hpp"

#include <boost/log/attributes/value_extraction.hpp>
#include <boost/log/core/core.hpp>
#include <boost/log/core/record_view.hpp>
#include <boost/log/sinks/basic_sink_backend.hpp>
#include <boost/log/sinks/sync_frontend.hpp>
#include <boost/smart_ptr/make_shared_object.hpp>

#include <utility>

namespace docparser_tests {

namespace {

struct Backend : boost::log::sinks::basic_sink_backend<boost::log::sinks::synchronized_feeding> {
    // Called by the frontend, under its lock.
    void consume(const boost::log::record_view& record) {
        lines.push_back(
            {boost::log::extract_or_default<std::string>("Channel", record, std::string()),
             boost::log::extract_or_default<int>("Severity", record, 0),
             boost::log::extract_or_default<std::string>("Message", record, std::string())});
    }

    std::vector<LogLine> lines;
};

} // namespace

struct LogCapture::Sink {
    boost::shared_ptr<boost::log::sinks::synchronous_sink<Backend>> frontend =
        boost::make_shared<boost::log::sinks::synchronous_sink<Backend>>();
};

LogCapture::LogCapture(std::uint32_t mask)
    : maskBefore_(foundation::log::severityMask()), sink_(std::make_unique<Sink>()) {
    boost::log::core::get()->add_sink(sink_->frontend);
    foundation::log::setSeverityMask(mask);
}

LogCapture::~LogCapture() {
    foundation::log::setSeverityMask(maskBefore_);
    boost::log::core::get()->remove_sink(sink_->frontend);
}

std::vector<LogLine> LogCapture::lines() const {
    return sink_->frontend->locked_backend()->lines;
}

std::vector<std::string> LogCapture::messages() const {
    std::vector<std::string> texts;
    for (LogLine& line : lines())
        texts.push_back(std::move(line.message));
    return texts;
}

} // namespace docparser_tests
