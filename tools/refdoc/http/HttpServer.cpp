#include "tools/refdoc/http/HttpServer.hpp"

#include "tools/refdoc/http/Connections.hpp"
#include "tools/refdoc/http/Host.hpp"

#include <fmt/format.h>

#include <atomic>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <exception>
#include <stdexcept>

namespace refdoc::http {

using namespace std::chrono_literals;
using httplib::DataSink;
using Clock = Connections::Clock;
using HandlerResponse = httplib::Server::HandlerResponse;

namespace {

// Browsers open at most six connections to a server, so this is enough for several of them.
constexpr std::size_t kMostEventStreams = 64;
// A stream that ends is requested again, so one whose client has disappeared does not stay.
constexpr auto kEventStreamTime = 30s;
constexpr auto kSignOfLifeInterval = 2s;
constexpr auto kWaitSlice = 100ms;

void answerWithText(httplib::Response& response, int status, const std::string& text) {
    response.status = status;
    response.set_content(text + '\n', "text/plain; charset=utf-8");
}

void refuseMethod(httplib::Response& response) {
    response.set_header("Allow", "GET, HEAD");
    answerWithText(response, 405, "only GET and HEAD requests are answered");
}

// Writes an event for each new version.
class EventStream {
public:
    EventStream(const Versions& versions, std::int64_t known)
        : versions_(versions), known_(known) {}

    // Called again and again.
    bool operator()(std::size_t, DataSink& sink) {
        const std::int64_t version = versions_.waitForOther(known_, kWaitSlice);
        if (version != known_) {
            known_ = version;
            write(fmt::format("id: {0}\ndata: {0}\n\n", version), sink);
        } else if (Clock::now() >= nextSignOfLife_) {
            write(":\n\n", sink);
        }
        if (Clock::now() >= end_)
            sink.done();
        return true;
    }

private:
    void write(const std::string& text, DataSink& sink) {
        sink.write(text.data(), text.size());
        nextSignOfLife_ = Clock::now() + kSignOfLifeInterval;
    }

    const Versions& versions_;
    std::int64_t known_;
    Clock::time_point nextSignOfLife_{};
    Clock::time_point end_ = Clock::now() + kEventStreamTime;
};

} // namespace

class HttpServer::Listener final : public httplib::Server {
public:
    Listener(ServerSettings settings, FindResponse findResponse, const Versions& versions)
        : settings_(std::move(settings)),
          findResponse_(std::move(findResponse)),
          versions_(versions) {
        setHandlers();
        set_default_headers({settings_.headers.begin(), settings_.headers.end()});
        set_read_timeout(5s);
        set_write_timeout(5s);
        set_idle_interval(kWaitSlice);
        listenOnPort();
    }

    std::string url() const {
        return fmt::format("http://{}:{}/", urlHost(settings_.address), settings_.port);
    }

    void run(std::function<bool()> isStopRequested) {
        new_task_queue = [&] {
            return new ConnectionThreads([&] {
                const bool isStopping = isStopRequested();
                if (isStopping && svr_sock_ != INVALID_SOCKET)
                    stop();
                connections_.endOverdue(isStopping ? Clock::time_point::max() : Clock::now());
            });
        };
        if (!listen_after_bind())
            throw std::runtime_error("can't accept connections at " + url());
    }

private:
    void setHandlers() {
        set_pre_routing_handler(
            [this](const httplib::Request& request, httplib::Response& response) {
                answer(request, response);
                return HandlerResponse::Handled;
            });
        set_error_handler(Handler([](const httplib::Request& request, httplib::Response& response) {
            // The parser refuses methods that it does not know.
            const bool isOtherMethod = response.status == 400 &&
                                       request.version.starts_with("HTTP/1.") &&
                                       request.method != "GET" && request.method != "HEAD";
            if (isOtherMethod)
                refuseMethod(response);
            else if (response.body.empty())
                answerWithText(response, response.status, "the request is invalid");
        }));
        set_exception_handler(
            [](const httplib::Request&, httplib::Response& response, std::exception_ptr failure) {
                try {
                    std::rethrow_exception(failure);
                } catch (const std::exception& error) {
                    answerWithText(response, 500, error.what());
                } catch (...) {
                    answerWithText(response, 500, "unknown failure");
                }
            });
    }

    void listenOnPort() {
        // By default, several servers could share a port.
        set_socket_options([](socket_t socket) {
#ifdef SO_EXCLUSIVEADDRUSE
            constexpr int kOption = SO_EXCLUSIVEADDRUSE;
#else
            constexpr int kOption = SO_REUSEADDR; // ports of connections that have ended
#endif
            const int on = 1;
            ::setsockopt(socket, SOL_SOCKET, kOption, reinterpret_cast<const char*>(&on),
                         sizeof on);
        });
        const std::string asked = url();
        if (settings_.port == 0)
            settings_.port = bind_to_any_port(settings_.address);
        else if (!bind_to_port(settings_.address, settings_.port))
            settings_.port = -1;
        if (settings_.port < 0)
            throw std::runtime_error(
                fmt::format("can't listen on {}; the port may be in use", asked));
        // The queue of the server is too short for many connections at once.
        ::listen(svr_sock_, kMostConnections);
    }

    void answer(const httplib::Request& request, httplib::Response& response) {
        if (request.get_header_value_count("Host") != 1)
            answerWithText(response, 400, "the request needs one Host header");
        else if (!isOwnHost(request.get_header_value("Host"), settings_.address, settings_.port))
            answerWithText(response, 421, "the Host header names another server");
        else if (request.method != "GET" && request.method != "HEAD")
            refuseMethod(response);
        else if (request.path == settings_.eventPath)
            answerWithEvents(request, response);
        else
            answerWithPage(request, response);
    }

    void answerWithPage(const httplib::Request& request, httplib::Response& response) {
        Response found = findResponse_(request.path);
        response.status = found.status;
        response.body = std::move(found.body);
        response.set_header("Content-Type", found.type);
    }

    void answerWithEvents(const httplib::Request& request, httplib::Response& response) {
        if (eventStreams_.fetch_add(1) >= kMostEventStreams) {
            --eventStreams_;
            answerWithText(response, 503, "too many pages wait for changes");
            return;
        }
        response.status = 200;
        response.set_content_provider("text/event-stream", EventStream(versions_, sinceOf(request)),
                                      [this](bool) { --eventStreams_; });
    }

    std::int64_t sinceOf(const httplib::Request& request) const {
        const std::string text = request.get_param_value("since");
        std::int64_t since = versions_.current();
        std::from_chars(text.data(), text.data() + text.size(), since);
        return since;
    }

    bool process_and_close_socket(socket_t socket) override {
        Connection connection(connections_, socket);
        // After a stop, the connection may have missed its end.
        if (svr_sock_ != INVALID_SOCKET)
            answer(connection);
        return true; // ignored by the caller
    }

    void answer(Connection& connection) {
        try {
            bool isClosed = false;
            process_request(connection, /*close_connection=*/true, isClosed,
                            [](httplib::Request& request) {
                                // Ranges could multiply a response, and compression is slower than
                                // this machine's network.
                                request.ranges.clear();
                                request.headers.erase("Accept-Encoding");
                            });
            connection.finish();
        } catch (...) {
            // Out of memory; only this connection ends.
        }
    }

    ServerSettings settings_;
    FindResponse findResponse_;
    const Versions& versions_;
    Connections connections_;
    std::atomic<std::size_t> eventStreams_ = 0;
};

HttpServer::HttpServer(ServerSettings settings, FindResponse findResponse, const Versions& versions)
    : listener_(
          std::make_unique<Listener>(std::move(settings), std::move(findResponse), versions)) {}

HttpServer::~HttpServer() = default;

std::string HttpServer::url() const {
    return listener_->url();
}

void HttpServer::run(std::function<bool()> isStopRequested) {
    listener_->run(std::move(isStopRequested));
}

} // namespace refdoc::http
