#pragma once

#include "platform/SeamExport.hpp"

#include <cstdint>
#include <stdexcept>

namespace platform {

/// The most bytes that the process reads into memory from one source, so that no file can exhaust
/// the memory.
///
/// A source that states a size beyond a limit is rejected at once. Stated sizes within the limits
/// are not trusted: the bytes that are read are counted as well. A rejected read fails in the same
/// way as one that runs out of memory, but before any memory is allocated.
struct ReadLimits {
    /// A file that is read completely.
    std::uint64_t fileBytes = std::uint64_t{1} << 30;
    /// An entry of a package, decompressed.
    std::uint64_t entryBytes = std::uint64_t{1} << 30;
    /// All entries read from an open package, decompressed.
    std::uint64_t packageBytes = std::uint64_t{4} << 30;
    /// The directory of a package, which has at least 46 bytes for each entry. An open directory
    /// takes about five times its length in memory.
    std::uint64_t directoryBytes = std::uint64_t{64} << 20;

    bool operator==(const ReadLimits&) const = default;
};

/// A read was refused because of a limit. what() names the limit, without a final period.
class DOCPARSER_SEAM_EXPORT LimitError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    ~LimitError() override;
};

/// Sets the limits of the process for all reads that start afterwards. Thread-safe; a read that
/// starts during the call may use some of the old and some of the new limits.
DOCPARSER_SEAM_EXPORT void setReadLimits(const ReadLimits& limits) noexcept;

/// Returns the current limits. Thread-safe.
DOCPARSER_SEAM_EXPORT ReadLimits readLimits() noexcept;

} // namespace platform
