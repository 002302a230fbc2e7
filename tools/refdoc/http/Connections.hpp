#pragma once

#include <httplib.h>

#include <array>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <string>

namespace refdoc::http {

/// The most connections that are open at the same time.
inline constexpr std::size_t kMostConnections = 256;

/// The longest head of a request in bytes: request line and header fields.
inline constexpr std::size_t kLongestHead = 16 * 1024;

/// The open connections, each with the time at which it is closed. Thread-safe.
class Connections {
public:
    using Clock = std::chrono::steady_clock;

    /// Adds a connection, or changes its time.
    void closeAt(socket_t socket, Clock::time_point time);

    /// Closes and removes a connection. Only for the thread that uses it.
    void close(socket_t socket);

    /// Ends the connections whose time is over. Their threads then read the end of the input.
    void endOverdue(Clock::time_point now);

private:
    std::mutex mutex_; // guards times_, and keeps sockets open while they are ended
    std::map<socket_t, Clock::time_point> times_;
};

/// One connection, as cpp-httplib reads and writes it. The destructor closes it.
class Connection final : public httplib::Stream {
public:
    Connection(Connections& all, socket_t socket);
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Tells the client that the response is complete, and waits shortly until it has closed its
    /// side. Otherwise, what it is still sending could make the system discard the response.
    void finish();

    bool is_readable() const override { return true; }
    bool is_writable() const override { return true; }
    ssize_t read(char* target, std::size_t size) override;
    ssize_t write(const char* source, std::size_t size) override;
    void get_remote_ip_and_port(std::string&, int&) const override {}
    void get_local_ip_and_port(std::string&, int&) const override {}
    socket_t socket() const override { return socket_; }

private:
    Connections& all_;
    socket_t socket_;
    std::array<char, 4096> buffer_;
    std::size_t begin_ = 0; // of the bytes that were received and not read
    std::size_t end_ = 0;
    std::size_t received_ = 0;
    bool isWriting_ = false;
};

/// The threads of the connections. If all are in use, enqueue() waits.
class ConnectionThreads final : public httplib::ThreadPool {
public:
    /// \param work  called regularly on the thread that accepts connections
    explicit ConnectionThreads(std::function<void()> work);

    void enqueue(std::function<void()> connection) override;
    void on_idle() override { work_(); }

private:
    std::function<void()> work_;
    std::mutex mutex_; // guards inUse_
    std::condition_variable finished_;
    std::size_t inUse_ = 0;
};

} // namespace refdoc::http
