#pragma once

#include "platform/SeamExport.hpp"

#include <cstdint>
#include <stdexcept>

namespace platform {

/// How much a hostile file can make the process read into memory, in bytes that come out.
///
/// Past a limit the read fails as it does when memory is short: before the memory is taken. What a
/// file or a package claims about its own size is never trusted.
struct ReadLimits {
    /// One file that is read whole.
    std::uint64_t fileBytes = std::uint64_t{1} << 30;
    /// One entry of a package, inflated.
    std::uint64_t entryBytes = std::uint64_t{1} << 30;
    /// All entries of one open package together, inflated.
    std::uint64_t packageBytes = std::uint64_t{4} << 30;

    bool operator==(const ReadLimits&) const = default;
};

/// A read was refused because of a limit; what() says which, without a final period.
class DOCPARSER_SEAM_EXPORT LimitError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    ~LimitError() override;
};

/// Sets the limits of the whole process for the reads that start from now on. Any thread may call;
/// a read that starts meanwhile may see some of the old and some of the new limits.
DOCPARSER_SEAM_EXPORT void setReadLimits(const ReadLimits& limits) noexcept;

/// The limits in force.
DOCPARSER_SEAM_EXPORT ReadLimits readLimits() noexcept;

} // namespace platform
