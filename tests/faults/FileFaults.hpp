#pragma once

#include "tests/faults/CallSchedule.hpp"

#include <cstddef>
#include <functional>

namespace docparser_tests {

/// Groups of system calls that fail together.
enum class FileCall {
    Open,       ///< open, openat, fopen
    Status,     ///< stat, fstat
    Read,       ///< read, pread
    Seek,       ///< lseek
    OpenFolder, ///< opendir, fdopendir
    ReadFolder, ///< readdir
    Close       ///< close, closedir; they close even if they report a failure
};
inline constexpr std::size_t kFileCalls = 7;

/// Use instead of an error number: the read returns at most half of the requested bytes.
inline constexpr int kShortRead = 0;

/// Makes file calls of one type fail on the calling thread during its life. Other threads are not
/// affected. A thread may have only one object at a time.
///
/// A program that links this file replaces the functions that FileCall lists.
class FileFaults {
public:
    /// \param error  the value for errno, or kShortRead
    FileFaults(FileCall call, int error, std::size_t first, Repetition repetition) noexcept;
    ~FileFaults();
    FileFaults(const FileFaults&) = delete;
    FileFaults& operator=(const FileFaults&) = delete;

    std::size_t failures() const noexcept;
};

/// The number of calls of a type that the calling thread made under its last FileFaults of that
/// type.
std::size_t countedCalls(FileCall call) noexcept;

/// Runs a step on the calling thread just before its next call of FileCall::Open.
/// \param step  must live until then
void runBeforeNextOpen(const std::function<void()>& step) noexcept;

/// How often any thread closed a descriptor that was not open.
std::size_t wrongCloses() noexcept;

} // namespace docparser_tests
