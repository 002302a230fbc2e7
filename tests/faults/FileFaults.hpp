#pragma once

#include "tests/faults/CallSchedule.hpp"

#include <cstddef>

namespace docparser_tests {

/// The kinds of calls into the system that fail together.
enum class FileCall {
    Open,       ///< open, openat, fopen
    Status,     ///< stat, fstat
    Read,       ///< read, pread
    Seek,       ///< lseek
    OpenFolder, ///< opendir, fdopendir
    ReadFolder, ///< readdir
    Close       ///< close, closedir: what they close is closed all the same
};
inline constexpr std::size_t kFileCalls = 7;

/// In place of an error number: the read gives half of what was asked for.
inline constexpr int kShortRead = 0;

/// Makes file calls of one kind fail on the calling thread while it lives. Other threads are left
/// alone.
///
/// A program that links this has those functions replaced. One object a thread at a time.
class FileFaults {
public:
    /// \param error  what errno becomes, or kShortRead
    FileFaults(FileCall call, int error, std::size_t first, Repetition repetition) noexcept;
    ~FileFaults();
    FileFaults(const FileFaults&) = delete;
    FileFaults& operator=(const FileFaults&) = delete;

    std::size_t failures() const noexcept;
};

/// How many calls of a kind the calling thread has made under the last FileFaults of that kind.
std::size_t countedCalls(FileCall call) noexcept;

/// How often, in any thread, something was closed that was not open.
std::size_t wrongCloses() noexcept;

} // namespace docparser_tests
