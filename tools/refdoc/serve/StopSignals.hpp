#pragma once

namespace refdoc::serve {

/// Notes the signals that ask the process to end, such as that of Ctrl+C, instead of ending it,
/// while the object exists. There is at most one object.
class StopSignals {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    /// Returns whether a signal has been received since the construction.
    bool isReceived() const noexcept;

private:
    using Handler = void (*)(int);

    Handler interrupt_; // restored by the destructor
    Handler terminate_;
};

} // namespace refdoc::serve
