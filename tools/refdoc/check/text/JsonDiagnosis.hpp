#pragma once

#include <boost/json/error.hpp>

#include <cstddef>
#include <string>
#include <string_view>

namespace refdoc::check {

/// What makes a text invalid JSON, and how to fix it.
struct JsonDiagnosis {
    std::size_t offset;  ///< in bytes, at most the size of the text
    std::string message; ///< starts in lower case and ends without a period

    bool operator==(const JsonDiagnosis&) const = default;
};

/// Explains why Boost.JSON rejects a text with its default options, except for a UTF-8 byte-order
/// mark and for nesting that is too deep: these have rules of their own.
///
/// The offset is where the text has to change, which may be before the position at which the parser
/// stopped: "[1, ]" is diagnosed at its comma. Only the first error is diagnosed. An error that has
/// no explanation of its own is described in the parser's words, at the parser's position.
/// \param text    may hold any bytes
/// \param offset  where the parser stopped
/// \param error   why it stopped
/// Cost: linear in the size of the text.
JsonDiagnosis diagnoseJson(std::string_view text, std::size_t offset,
                           const boost::json::error_code& error);

} // namespace refdoc::check
