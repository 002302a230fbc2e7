// In a shared library of its own, because the benchmarks contain the library's Boost.JSON.

#include "benchmarks/peers/SharedParse.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>

namespace reference::docparser::benchmarks {

void parseWithSharedJson(std::string_view text) {
    boost::json::monotonic_resource arena(1024);
    boost::json::parse(text, &arena);
}

} // namespace reference::docparser::benchmarks
