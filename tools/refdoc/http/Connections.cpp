#include "tools/refdoc/http/Connections.hpp"

#include <algorithm>
#include <utility>

namespace refdoc::http {

using namespace std::chrono_literals;
using httplib::detail::read_socket;
using httplib::detail::send_socket;

namespace {

constexpr auto kRequestTime = 10s;
constexpr auto kResponseTime = 60s;
constexpr auto kFinishTime = 1s;
constexpr auto kWorkInterval = 100ms;
constexpr std::size_t kMostDiscarded = 1024 * 1024;

// Arguments of shutdown(). Systems name them differently: SHUT_WR or SD_SEND, SHUT_RDWR or SD_BOTH.
constexpr int kEndWriting = 1;
constexpr int kEndBoth = 2;

#ifdef MSG_NOSIGNAL
constexpr int kSendFlags = MSG_NOSIGNAL;
#else
constexpr int kSendFlags = 0;
#endif

} // namespace

void Connections::closeAt(socket_t socket, Clock::time_point time) {
    const std::lock_guard lock(mutex_);
    times_[socket] = time;
}

void Connections::close(socket_t socket) {
    const std::lock_guard lock(mutex_);
    times_.erase(socket);
    httplib::detail::close_socket(socket);
}

void Connections::endOverdue(Clock::time_point now) {
    const std::lock_guard lock(mutex_);
    for (const auto& [socket, time] : times_) {
        if (time <= now)
            ::shutdown(socket, kEndBoth);
    }
}

Connection::Connection(Connections& all, socket_t socket) : all_(all), socket_(socket) {
    all_.closeAt(socket_, Connections::Clock::now() + kRequestTime);
}

Connection::~Connection() {
    all_.close(socket_);
}

void Connection::finish() {
    ::shutdown(socket_, kEndWriting);
    all_.closeAt(socket_, Connections::Clock::now() + kFinishTime);
    for (std::size_t discarded = 0; discarded < kMostDiscarded;) {
        const ssize_t count = read_socket(socket_, buffer_.data(), buffer_.size(), 0);
        if (count <= 0)
            break;
        discarded += static_cast<std::size_t>(count);
    }
}

ssize_t Connection::read(char* target, std::size_t size) {
    if (begin_ == end_) {
        const ssize_t count = read_socket(socket_, buffer_.data(),
                                          std::min(buffer_.size(), kLongestHead - received_), 0);
        if (count <= 0)
            return count;
        begin_ = 0;
        end_ = static_cast<std::size_t>(count);
        received_ += end_;
    }
    const std::size_t count = std::min(size, end_ - begin_);
    std::copy_n(buffer_.data() + begin_, count, target);
    begin_ += count;
    return static_cast<ssize_t>(count);
}

ssize_t Connection::write(const char* source, std::size_t size) {
    if (!std::exchange(isWriting_, true))
        all_.closeAt(socket_, Connections::Clock::now() + kResponseTime);
    return send_socket(socket_, source, size, kSendFlags);
}

ConnectionThreads::ConnectionThreads(std::function<void()> work)
    : ThreadPool(kMostConnections), work_(std::move(work)) {}

void ConnectionThreads::enqueue(std::function<void()> connection) {
    work_();
    {
        std::unique_lock lock(mutex_);
        while (!finished_.wait_for(lock, kWorkInterval, [&] { return inUse_ < kMostConnections; }))
            work_();
        ++inUse_;
    }
    ThreadPool::enqueue([this, connection = std::move(connection)] {
        connection();
        const std::lock_guard lock(mutex_);
        --inUse_;
        finished_.notify_one();
    });
}

} // namespace refdoc::http
