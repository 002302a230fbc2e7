#pragma once

namespace foundation::core::except {

/// Holds the cancellation of the calling thread up during its life: what is done meanwhile runs to
/// its end, and a cancellation that came in between waits for a later place that lets it pass.
///
/// For what cannot be unwound: the closing of a file in a destructor, and the frames of a library
/// written in C, which would leave its memory behind.
class CancellationHold {
public:
    CancellationHold() noexcept;
    ~CancellationHold();
    CancellationHold(const CancellationHold&) = delete;
    CancellationHold& operator=(const CancellationHold&) = delete;

private:
    int before_ = 0; // the system's word for what was so far
};

/// Ends the thread here, by unwinding it, when its cancellation has been asked for and nothing
/// holds it up.
void letCancellationPass();

} // namespace foundation::core::except
