#pragma once

#include <functional>
#include <memory>
#include <string>

namespace docparser_tests {

/// Calls a function for each record of the log during its life, on the thread that logs and without
/// a lock, so the function may log, throw or wait; several threads may be in it at once.
///
/// It lets the lines of the library through (severity mask 528); the destructor sets the mask to 0.
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
