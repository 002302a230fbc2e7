#pragma once

#include <cstddef>
#include <memory>

/// Listens to the library's diagnostic channel from construction to destruction: counts the files
/// that are tried, and writes a line to standard error for each problem.
class ChannelListener {
public:
    ChannelListener();
    ~ChannelListener();
    ChannelListener(const ChannelListener&) = delete;
    ChannelListener& operator=(const ChannelListener&) = delete;

    /// Returns the number of files and package entries tried so far. Any thread may call.
    std::size_t filesTried() const;

private:
    struct Sink;

    std::unique_ptr<Sink> sink_;
};
