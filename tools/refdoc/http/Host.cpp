#include "tools/refdoc/http/Host.hpp"

#include <boost/algorithm/string/predicate.hpp>
#include <boost/url/ipv4_address.hpp>
#include <boost/url/ipv6_address.hpp>

namespace refdoc::http {

namespace urls = boost::urls;

namespace {

// \param host  IPv6 addresses are in brackets
bool isAddress(std::string_view host) {
    if (host.starts_with('[') && host.ends_with(']'))
        return urls::parse_ipv6_address(host.substr(1, host.size() - 2)).has_value();
    return urls::parse_ipv4_address(host).has_value();
}

bool isLoopbackHost(std::string_view host) {
    return boost::iequals(host, "localhost") || host == "127.0.0.1" || host == "[::1]";
}

} // namespace

std::string urlHost(const std::string& address) {
    return urls::parse_ipv6_address(address).has_value() ? '[' + address + ']' : address;
}

bool isLoopback(const std::string& address) {
    return isLoopbackHost(urlHost(address));
}

bool isOwnHost(std::string_view header, const std::string& address, int port) {
    const std::string portSuffix = ':' + std::to_string(port);
    if (header.ends_with(portSuffix))
        header.remove_suffix(portSuffix.size());
    const bool isOnAllAddresses = address == "0.0.0.0" || address == "::";
    return isLoopbackHost(header) || boost::iequals(header, urlHost(address)) ||
           (isOnAllAddresses && isAddress(header));
}

} // namespace refdoc::http
