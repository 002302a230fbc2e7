// A shared library of its own: the benchmark programs have the library's Boost.JSON compiled in.

#include "benchmarks/rows/SharedParse.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>

namespace reference::docparser::benchmarks {

std::size_t parseWithSharedJson(std::string_view text) {
    boost::json::monotonic_resource arena(1024);
    const boost::json::value document = boost::json::parse(text, &arena);
    return document.is_object() ? 1 : 0;
}

} // namespace reference::docparser::benchmarks
