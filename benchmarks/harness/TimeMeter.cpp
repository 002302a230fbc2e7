#include "benchmarks/harness/TimeMeter.hpp"

#include <ctime>

namespace reference::docparser::benchmarks {

namespace {

double threadSeconds() noexcept {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

} // namespace

void TimeMeter::start() {
    started_ = threadSeconds();
}

void TimeMeter::stop() {
    seconds_ += threadSeconds() - started_;
}

void TimeMeter::account(std::size_t inputBytes) {
    if (inputBytes_ == 0)
        firstCallSeconds_ = seconds_;
    inputBytes_ += inputBytes;
}

} // namespace reference::docparser::benchmarks
