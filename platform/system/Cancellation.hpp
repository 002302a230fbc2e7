#pragma once

namespace platform {

/// Defers the cancellation of the calling thread during the object's lifetime; a cancellation that
/// is requested meanwhile takes effect at a later cancellation point.
///
/// For code that must not be unwound: a destructor that closes a file, and the stack frames of a
/// library written in C, which would leak its memory.
class CancellationHold {
public:
    CancellationHold() noexcept;
    ~CancellationHold();
    CancellationHold(const CancellationHold&) = delete;
    CancellationHold& operator=(const CancellationHold&) = delete;

private:
    [[maybe_unused]] int before_ = 0; // the system's previous cancellation state
};

/// Unwinds and ends the calling thread if its cancellation has been requested and nothing defers
/// it; returns otherwise.
void letCancellationPass();

} // namespace platform
