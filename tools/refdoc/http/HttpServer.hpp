#pragma once

#include "tools/refdoc/http/Versions.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace refdoc::http {

struct Response {
    int status = 200;
    std::string type; ///< the media type: "text/html; charset=utf-8"
    std::string body;
};

struct ServerSettings {
    std::string address = "127.0.0.1"; ///< to listen on: an IP address or a name
    int port = 0;                      ///< 0: any
    std::string eventPath;             ///< of the event stream: "/events"
    std::vector<std::pair<std::string, std::string>> headers{}; ///< of all responses
};

/// Answers the requests of browsers.
///
/// GET and HEAD are answered, and only if the Host header names the server. A request has at most
/// 16 KiB and ten seconds, a response one minute; 256 connections are served at a time. Requests
/// that are malformed, too long or too slow get an error or no response, and affect no others.
class HttpServer {
public:
    /// Returns the response for a path, which begins with '/' and has been decoded. Called on
    /// several threads at a time.
    using FindResponse = std::function<Response(const std::string& path)>;

    /// Begins to accept connections. They wait until run() is called.
    /// \param versions  each one is an event: pages request the event path with "?since=" and the
    ///                  version that they show, and get an event when there is another one. Must
    ///                  outlive the object.
    /// \throws std::runtime_error  the address or the port cannot be used
    HttpServer(ServerSettings settings, FindResponse findResponse, const Versions& versions);
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    /// Returns the URL of the path "/".
    std::string url() const;

    /// Serves until the function returns true; it is called several times a second. Then ends all
    /// connections, also those with a request that is incomplete.
    /// \throws std::runtime_error  the system accepts no more connections
    void run(std::function<bool()> isStopRequested);

private:
    class Listener;

    std::unique_ptr<Listener> listener_;
};

} // namespace refdoc::http
