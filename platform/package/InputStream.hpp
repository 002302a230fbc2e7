#pragma once

#include "platform/Export.hpp"

#include <cstddef>
#include <cstdint>

namespace opc {

/// Bytes that are read once, from the first to the last. One thread at a time.
class DOCPARSER_PLATFORM_EXPORT InputStream {
public:
    virtual ~InputStream();
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    /// Reads the next bytes.
    ///
    /// Only the 0 at the end says that the content was right: bytes that came before a throw are
    /// of no use. After a throw every further read throws too.
    /// \param buffer  where they go
    /// \param length  how many there is room for
    /// \returns       how many came; 0 at the end, or when `length` is 0
    /// \throws PackageError  the content is damaged, cannot be read or passes a limit
    virtual std::size_t read(char* buffer, std::size_t length) = 0;

    /// How many bytes there are in all, as the package claims. A guess to size a buffer by, once it
    /// has been cut to something affordable.
    virtual std::uint64_t claimedSize() const noexcept = 0;

protected:
    InputStream() = default;
};

} // namespace opc
