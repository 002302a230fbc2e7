#pragma once

#include <functional>
#include <memory>
#include <string>

namespace docparser_tests {

/// Calls a function for each log record during its life, on the logging thread and without a lock.
/// The function may log, throw or wait. Several threads may call it at once.
///
/// Sets the severity mask to 528, which lets all messages of the library pass. The destructor sets
/// it to 0.
class LogCallback {
public:
    using Function = std::function<void(const std::string& message)>;

    explicit LogCallback(Function function);
    ~LogCallback();
    LogCallback(const LogCallback&) = delete;
    LogCallback& operator=(const LogCallback&) = delete;

private:
    struct Sink; // keeps the many headers of Boost.Log out of the tests

    std::unique_ptr<Sink> sink_;
};

} // namespace docparser_tests
