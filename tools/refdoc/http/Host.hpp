#pragma once

#include <string>
#include <string_view>

namespace refdoc::http {

/// Returns an address as it stands in URLs: IPv6 addresses are in brackets.
std::string urlHost(const std::string& address);

/// Returns whether an address reaches this machine only: "127.0.0.1", "::1", "localhost".
bool isLoopback(const std::string& address);

/// Returns whether the value of a Host header names the server: by its own address, as localhost or
/// as a loopback address, without a port or with the server's. A server on all addresses of the
/// machine ("0.0.0.0", "::") accepts any address, but no name other than localhost.
///
/// A page of another site can have its own name resolve to this machine, but its requests still
/// have that name.
/// \param address  that the server listens on: an IP address or a name
bool isOwnHost(std::string_view header, const std::string& address, int port);

} // namespace refdoc::http
