#pragma once

#include "platform/Export.hpp"
#include "platform/package/InputStream.hpp"

#include <iosfwd>
#include <string>

namespace opc {

/// Takes the whole of a stream.
class DOCPARSER_PLATFORM_EXPORT StreamHelper {
public:
    StreamHelper() = delete;

    /// Copies what the input has left to the output.
    ///
    /// Whatever keeps the copy from being whole is thrown, so a caller that does not look at the
    /// answer cannot take part of a text for all of it.
    /// \returns true
    /// \throws PackageError            the input fails, or the output does not take the bytes
    /// \throws std::ios_base::failure  the output does not take the bytes and is set to throw
    static bool copyStreamToStream(InputStream& input, std::ostream& output);

    /// The rest of the input as one text, read straight into it.
    ///
    /// Costs one allocation when the input's claim is true and modest; a false claim costs at most
    /// the memory of the first step, 1 MiB. Past that the text grows with what arrives.
    /// \throws PackageError  the input fails
    static std::string readAll(InputStream& input);
};

} // namespace opc
