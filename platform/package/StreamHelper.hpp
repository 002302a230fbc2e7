#pragma once

#include "platform/Export.hpp"

#include <iosfwd>

namespace opc {

class InputStream;

/// Operations on whole streams.
class DOCPARSER_PLATFORM_EXPORT StreamHelper {
public:
    StreamHelper() = delete;

    /// Copies the rest of the input to the output.
    ///
    /// Every failure is thrown, so a caller that ignores the result never mistakes partial content
    /// for all of it. To receive the exception of a failed allocation, let the output throw on
    /// std::ios::badbit.
    /// \returns true
    /// \throws PackageError            the input fails, or the output does not accept the bytes
    /// \throws platform::LimitError    the input exceeds a limit
    /// \throws std::ios_base::failure  the output does not accept the bytes and is set to throw
    static bool copyStreamToStream(InputStream& input, std::ostream& output);
};

} // namespace opc
