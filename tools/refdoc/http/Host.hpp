#pragma once

#include <string>
#include <string_view>

namespace refdoc::http {

/// Returns the host of the URL of a server: IPv6 addresses are in brackets. For a server on all
/// addresses ("0.0.0.0", "::"), it is this machine's own.
/// \param address  that the server listens on: an IP address or a name
std::string urlHost(const std::string& address);

/// Returns whether an address reaches this machine only: "127.0.0.1", "::1", "localhost".
bool isLoopback(const std::string& address);

/// Returns whether the value of a Host header names a server: by the address that it listens on or
/// one that is a loopback address, without a port or with the server's. A server on all addresses
/// accepts any address, but no name other than "localhost".
///
/// A page of another site can let its own name resolve to this machine, but its requests still have
/// that name.
bool isOwnHost(std::string_view header, const std::string& address, int port);

} // namespace refdoc::http
