#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace docparser_tests {

/// What follows the bytes of an entry that was written without knowing its size beforehand.
enum class DataDescriptor { None, WithSignature, WithoutSignature };

constexpr std::uint16_t kStored = 0;
constexpr std::uint16_t kDeflated = 8;

constexpr std::uint16_t kEncryptedFlag = 0x0001;
constexpr std::uint16_t kDataDescriptorFlag = 0x0008;
constexpr std::uint16_t kUtf8Flag = 0x0800;

/// One entry of a hand-made package. What is not set is what a correct package has.
struct ZipEntryBytes {
    std::string name{};
    std::string content{};          ///< what is packed
    std::uint16_t method = kStored; ///< any other than kStored is packed as if it were kDeflated
    std::uint16_t flags = 0;
    DataDescriptor descriptor = DataDescriptor::None;
    bool isZip64 = false;     ///< sizes and offset stand in the zip64 extra field
    std::string extra{};      ///< further extra fields in the directory
    std::string localExtra{}; ///< further extra fields in the header before the bytes
    std::string comment{};
    std::optional<std::string> packed{};        ///< the stored bytes
    std::optional<std::string> localName{};     ///< the name in the header before the bytes
    std::optional<std::uint32_t> crc{};         ///< claimed checksum
    std::optional<std::uint64_t> size{};        ///< claimed size, unpacked
    std::optional<std::uint64_t> packedSize{};  ///< claimed size, packed
    std::optional<std::uint64_t> localOffset{}; ///< claimed place of the header
};

/// A hand-made package. What is not set is what a correct package has.
struct ZipBytes {
    std::vector<ZipEntryBytes> entries{};
    std::string comment{};
    std::string prefix{}; ///< bytes before the package; offsets do not count them
    std::string suffix{}; ///< bytes after it
    bool isZip64 = false;
    std::optional<std::uint64_t> count{};           ///< claimed number of entries
    std::optional<std::uint64_t> directorySize{};   ///< claimed length of the directory
    std::optional<std::uint64_t> directoryOffset{}; ///< claimed place of the directory

    /// The bytes of the package.
    std::string build() const;
};

/// The record at the end of a package that gives the location of its directory.
std::string endRecord(std::uint64_t count, std::uint64_t directorySize,
                      std::uint64_t directoryOffset, std::string_view comment = {});

/// A package of `count` empty entries that share one header before the bytes, so that a large
/// directory costs little to build.
std::string packageOfEmptyEntries(std::size_t count,
                                  const std::function<ZipEntryBytes(std::size_t)>& entryAt);

/// The bytes as a raw deflate stream, without a zlib header.
std::string deflated(std::string_view bytes);

std::uint32_t crcOf(std::string_view bytes);

/// A number of `length` bytes, least first.
std::string littleEndian(std::uint64_t number, std::size_t length);

/// An extra field: its id, its length and its bytes.
std::string extraField(std::uint16_t id, std::string_view bytes);

} // namespace docparser_tests
