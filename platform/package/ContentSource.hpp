#pragma once

#include "platform/Export.hpp"

#include <cstddef>
#include <memory>

namespace opc {

/// What happens to the stored bytes of an entry when they are read.
enum class TransformMode {
    Decoded = 1 ///< decompressed and checked: the result is the file that was packed
};

/// Bytes that are read once, from the first to the last. One thread at a time.
class DOCPARSER_PLATFORM_EXPORT InputStream {
public:
    virtual ~InputStream();
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    /// Reads the next bytes.
    ///
    /// Only a result of 0 at the end confirms the content: if a later call throws, the bytes read
    /// so far must not be used. After an exception every further call throws too.
    /// \param buffer  receives the bytes
    /// \param length  size of the buffer
    /// \returns       the number of bytes read; 0 at the end, or if `length` is 0
    /// \throws PackageError          the content is damaged or cannot be read
    /// \throws platform::LimitError  the content exceeds platform::readLimits()
    virtual std::size_t read(char* buffer, std::size_t length) = 0;

protected:
    InputStream() = default;
};

/// The content of one entry. The source and its streams keep the package's file open.
class DOCPARSER_PLATFORM_EXPORT ContentSource {
public:
    virtual ~ContentSource();
    ContentSource(const ContentSource&) = delete;
    ContentSource& operator=(const ContentSource&) = delete;

    /// Returns a new stream over the content, at its first byte. Several streams may be read in
    /// turn, and a stream may outlive the source.
    /// \throws PackageError          the entry is encrypted, compressed by an unknown method, or
    ///                               not at the position that the package states
    /// \throws platform::LimitError  the package states a size beyond platform::readLimits();
    ///                               nothing has been decompressed
    virtual std::unique_ptr<InputStream> openInputStream() = 0;

protected:
    ContentSource() = default;
};

} // namespace opc
