#include "tools/refdoc/http/Host.hpp"

#include <boost/algorithm/string/predicate.hpp>
#include <boost/asio/ip/address.hpp>

#include <optional>

namespace refdoc::http {

namespace ip = boost::asio::ip;

namespace {

std::optional<ip::address> addressFrom(const std::string& text) {
    boost::system::error_code error;
    const ip::address address = ip::make_address(text, error);
    // Windows also accepts an address with a port: "127.0.0.1:8400", "[::1]:8400".
    const bool hasPort = text.find(address.is_v4() ? ':' : '[') != text.npos;
    return error || hasPort ? std::nullopt : std::optional(address);
}

// Returns a host of a URL as an address: without the brackets of IPv6.
std::string withoutBrackets(std::string_view host) {
    if (host.starts_with('[') && host.ends_with(']'))
        host = host.substr(1, host.size() - 2);
    return std::string(host);
}

} // namespace

std::string urlHost(const std::string& address) {
    const std::optional<ip::address> parsed = addressFrom(address);
    if (!parsed)
        return address;
    if (parsed->is_unspecified())
        return parsed->is_v6() ? "[::1]" : "127.0.0.1";
    return parsed->is_v6() ? '[' + address + ']' : address;
}

bool isLoopback(const std::string& address) {
    const std::optional<ip::address> parsed = addressFrom(address);
    return parsed ? parsed->is_loopback() : boost::iequals(address, "localhost");
}

bool isOwnHost(std::string_view header, const std::string& address, int port) {
    const std::string portSuffix = ':' + std::to_string(port);
    if (header.ends_with(portSuffix))
        header.remove_suffix(portSuffix.size());
    const std::string host = withoutBrackets(header);
    if (isLoopback(host) || boost::iequals(host, address))
        return true;
    const std::optional<ip::address> own = addressFrom(address);
    return own && own->is_unspecified() && addressFrom(host);
}

} // namespace refdoc::http
