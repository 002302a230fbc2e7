#pragma once

#include "platform/Export.hpp"
#include "platform/package/InputStream.hpp"

#include <memory>

namespace opc {

/// What is done to an entry's stored bytes on their way out.
enum class TransformMode {
    Decoded = 1 ///< they are decompressed and checked: the file that was packed
};

/// The content of one entry. The source and its streams keep the package's file open.
class DOCPARSER_PLATFORM_EXPORT ContentSource {
public:
    virtual ~ContentSource();
    ContentSource(const ContentSource&) = delete;
    ContentSource& operator=(const ContentSource&) = delete;

    /// A stream over the content from its first byte; each call gives another, and several may be
    /// read by turns. A stream may outlive the source.
    /// \throws PackageError  the entry cannot be delivered: it is encrypted, compressed by a method
    ///                       that is not known, or not where the package says
    virtual std::unique_ptr<InputStream> openInputStream() = 0;

protected:
    ContentSource() = default;
};

} // namespace opc
