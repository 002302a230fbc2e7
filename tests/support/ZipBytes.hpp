#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace docparser_tests {

/// The form of the data descriptor that follows an entry whose size was not known in advance.
enum class DataDescriptor { None, WithSignature, WithoutSignature };

constexpr std::uint16_t kStored = 0;
constexpr std::uint16_t kDeflated = 8;

constexpr std::uint16_t kEncryptedFlag = 0x0001;
constexpr std::uint16_t kDataDescriptorFlag = 0x0008;
constexpr std::uint16_t kUtf8Flag = 0x0800;

/// One entry of a package. Fields that are not set have the values of a valid package.
struct ZipEntryBytes {
    std::string name{};
    std::string content{};          ///< the uncompressed content
    std::uint16_t method = kStored; ///< every method except kStored is packed as kDeflated
    std::uint16_t flags = 0;
    DataDescriptor descriptor = DataDescriptor::None;
    bool isZip64 = false;     ///< sizes and offset are in the zip64 extra field
    std::string extra{};      ///< further extra fields in the directory
    std::string localExtra{}; ///< further extra fields in the local header
    std::string comment{};
    std::optional<std::string> packed{};        ///< the packed bytes
    std::optional<std::string> localName{};     ///< the name in the local header
    std::optional<std::uint32_t> crc{};         ///< stated checksum
    std::optional<std::uint64_t> size{};        ///< stated uncompressed size
    std::optional<std::uint64_t> packedSize{};  ///< stated packed size
    std::optional<std::uint64_t> localOffset{}; ///< stated offset of the local header
};

/// A package. Fields that are not set have the values of a valid package.
struct ZipBytes {
    std::vector<ZipEntryBytes> entries{};
    std::string comment{};
    std::string prefix{}; ///< bytes before the package, not counted by offsets
    std::string suffix{}; ///< bytes after the package
    bool isZip64 = false;
    std::optional<std::uint64_t> count{};           ///< stated number of entries
    std::optional<std::uint64_t> directorySize{};   ///< stated size of the directory
    std::optional<std::uint64_t> directoryOffset{}; ///< stated offset of the directory

    /// The bytes of the package.
    std::string build() const;
};

/// The end record of a package, which states the location of its directory.
std::string endRecord(std::uint64_t count, std::uint64_t directorySize,
                      std::uint64_t directoryOffset, std::string_view comment = {});

/// A package of `count` empty entries that share one local header, so that a large directory can be
/// built quickly.
std::string packageOfEmptyEntries(std::size_t count,
                                  const std::function<ZipEntryBytes(std::size_t)>& entryAt);

/// Compresses bytes to a raw deflate stream, without a zlib header.
std::string deflated(std::string_view bytes);

std::uint32_t crcOf(std::string_view bytes);

/// A number as `length` bytes, least significant first.
std::string littleEndian(std::uint64_t number, std::size_t length);

/// An extra field: its id, its length and its bytes.
std::string extraField(std::uint16_t id, std::string_view bytes);

} // namespace docparser_tests
