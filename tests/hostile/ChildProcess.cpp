#include "tests/hostile/ChildProcess.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <system_error>

namespace docparser_tests {

namespace {

constexpr std::size_t kBufferBytes = 4096;
constexpr unsigned kSanitizedSlowness = 10;

/// Memory that the child writes and the parent reads.
class SharedBuffer {
public:
    SharedBuffer()
        : bytes_(::mmap(nullptr, kBufferBytes, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS,
                        -1, 0)) {
        if (bytes_ == MAP_FAILED)
            throw std::system_error(errno, std::generic_category(), "mmap");
    }
    ~SharedBuffer() { ::munmap(bytes_, kBufferBytes); }
    SharedBuffer(const SharedBuffer&) = delete;
    SharedBuffer& operator=(const SharedBuffer&) = delete;

    char* text() const { return static_cast<char*>(bytes_); }

private:
    void* bytes_;
};

void limitMemory(std::uint64_t bytes) {
    if (kIsSanitized)
        return;
    const rlimit limit{bytes, bytes};
    ASSERT_EQ(::setrlimit(RLIMIT_AS, &limit), 0);
}

[[noreturn]] void runStep(const ChildLimits& limits, Progress progress,
                          const std::function<void(Progress&)>& step) {
    try {
        limitMemory(limits.memoryBytes);
        progress.at("the start");
        step(progress);
    } catch (const std::exception& error) {
        ADD_FAILURE() << "the step threw " << error.what();
    } catch (...) {
        ADD_FAILURE() << "the step threw";
    }
    std::fflush(nullptr);
    // The exit handlers belong to the parent.
    ::_exit(testing::Test::HasFailure() ? 1 : 0);
}

} // namespace

void Progress::at(std::string_view what) {
    const std::size_t length = std::min(what.size(), kBufferBytes - 1);
    std::copy_n(what.data(), length, buffer_);
    buffer_[length] = '\0';
    ::alarm(seconds_);
}

void runInChild(const ChildLimits& limits, const std::function<void(Progress&)>& step) {
    const SharedBuffer current;
    const unsigned seconds = limits.seconds * (kIsSanitized ? kSanitizedSlowness : 1);
    std::fflush(nullptr);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0) << "cannot create a child process";
    if (child == 0)
        runStep(limits, Progress(current.text(), seconds), step);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_FALSE(WIFSIGNALED(status))
        << "ended by signal " << WTERMSIG(status) << " at " << current.text();
    EXPECT_EQ(status, 0) << "failed at " << current.text();
}

} // namespace docparser_tests
