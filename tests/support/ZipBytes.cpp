#include "tests/support/ZipBytes.hpp"

#include <zlib.h>

#include <algorithm>
#include <stdexcept>

namespace docparser_tests {

namespace {

using namespace std::string_literals;

constexpr std::uint16_t kZip64Field = 0x0001;
constexpr std::uint64_t kInZip64Field = 0xFFFFFFFF;

/// The bytes and numbers of one entry after all overrides.
struct PackedEntry {
    const ZipEntryBytes& entry;
    std::string packed;
    std::uint32_t crc;
    std::uint64_t size;
    std::uint64_t packedSize;
    std::uint64_t offset;
    std::uint16_t flags;
};

PackedEntry pack(const ZipEntryBytes& entry, std::uint64_t offset) {
    std::string packed =
        entry.packed.value_or(entry.method == kStored ? entry.content : deflated(entry.content));
    const std::uint64_t packedSize = entry.packedSize.value_or(packed.size());
    const bool hasDescriptor = entry.descriptor != DataDescriptor::None;
    const auto flags =
        static_cast<std::uint16_t>(entry.flags | (hasDescriptor ? kDataDescriptorFlag : 0));
    return {entry,
            std::move(packed),
            entry.crc.value_or(crcOf(entry.content)),
            entry.size.value_or(entry.content.size()),
            packedSize,
            entry.localOffset.value_or(offset),
            flags};
}

/// Version needed, flags, method, time and date.
std::string commonStart(const PackedEntry& packed) {
    return littleEndian(packed.entry.isZip64 ? 45 : 20, 2) + littleEndian(packed.flags, 2) +
           littleEndian(packed.entry.method, 2) + littleEndian(0x6000, 2) + littleEndian(0x5821, 2);
}

std::string sizes(std::uint32_t crc, std::uint64_t packedSize, std::uint64_t size,
                  std::size_t width) {
    return littleEndian(crc, 4) + littleEndian(packedSize, width) + littleEndian(size, width);
}

std::string localHeader(const PackedEntry& packed) {
    const ZipEntryBytes& entry = packed.entry;
    const std::string name = entry.localName.value_or(entry.name);
    const bool isLater = entry.descriptor != DataDescriptor::None;
    std::string extra = entry.localExtra;
    std::string numbers =
        isLater ? sizes(0, 0, 0, 4) : sizes(packed.crc, packed.packedSize, packed.size, 4);
    if (entry.isZip64) {
        numbers = sizes(isLater ? 0 : packed.crc, kInZip64Field, kInZip64Field, 4);
        extra = extraField(kZip64Field, littleEndian(isLater ? 0 : packed.size, 8) +
                                            littleEndian(isLater ? 0 : packed.packedSize, 8)) +
                extra;
    }
    return "PK\3\4" + commonStart(packed) + numbers + littleEndian(name.size(), 2) +
           littleEndian(extra.size(), 2) + name + extra;
}

std::string descriptorOf(const PackedEntry& packed) {
    if (packed.entry.descriptor == DataDescriptor::None)
        return {};
    const bool isSigned = packed.entry.descriptor == DataDescriptor::WithSignature;
    return (isSigned ? "PK\7\10"s : ""s) +
           sizes(packed.crc, packed.packedSize, packed.size, packed.entry.isZip64 ? 8 : 4);
}

std::string directoryRecord(const PackedEntry& packed) {
    const ZipEntryBytes& entry = packed.entry;
    std::string extra = entry.extra;
    std::string numbers = sizes(packed.crc, packed.packedSize, packed.size, 4);
    std::uint64_t offset = packed.offset;
    if (entry.isZip64) {
        numbers = sizes(packed.crc, kInZip64Field, kInZip64Field, 4);
        extra = extraField(kZip64Field, littleEndian(packed.size, 8) +
                                            littleEndian(packed.packedSize, 8) +
                                            littleEndian(packed.offset, 8)) +
                extra;
        offset = kInZip64Field;
    }
    return "PK\1\2" + littleEndian(45, 2) + commonStart(packed) + numbers +
           littleEndian(entry.name.size(), 2) + littleEndian(extra.size(), 2) +
           littleEndian(entry.comment.size(), 2) + littleEndian(0, 2 + 2 + 4) +
           littleEndian(offset, 4) + entry.name + extra + entry.comment;
}

std::string zip64End(std::uint64_t count, std::uint64_t size, std::uint64_t offset,
                     std::uint64_t endOffset) {
    return "PK\6\6" + littleEndian(44, 8) + littleEndian(45, 2) + littleEndian(45, 2) +
           littleEndian(0, 4 + 4) + littleEndian(count, 8) + littleEndian(count, 8) +
           littleEndian(size, 8) + littleEndian(offset, 8) + "PK\6\7" + littleEndian(0, 4) +
           littleEndian(endOffset, 8) + littleEndian(1, 4);
}

} // namespace

std::string endRecord(std::uint64_t count, std::uint64_t directorySize,
                      std::uint64_t directoryOffset, std::string_view comment) {
    return "PK\5\6" + littleEndian(0, 2 + 2) + littleEndian(count, 2) + littleEndian(count, 2) +
           littleEndian(directorySize, 4) + littleEndian(directoryOffset, 4) +
           littleEndian(comment.size(), 2) + std::string(comment);
}

std::string ZipBytes::build() const {
    std::string files;
    std::string directory;
    for (const ZipEntryBytes& entry : entries) {
        const PackedEntry packed = pack(entry, files.size());
        files += localHeader(packed) + packed.packed + descriptorOf(packed);
        directory += directoryRecord(packed);
    }
    std::uint64_t claimedCount = count.value_or(entries.size());
    std::uint64_t claimedSize = directorySize.value_or(directory.size());
    std::uint64_t claimedOffset = directoryOffset.value_or(files.size());
    std::string end;
    if (isZip64) {
        end = zip64End(claimedCount, claimedSize, claimedOffset, files.size() + directory.size());
        claimedCount = 0xFFFF;
        claimedSize = claimedOffset = kInZip64Field;
    }
    end += endRecord(claimedCount, claimedSize, claimedOffset, comment);
    return prefix + files + directory + end + suffix;
}

std::string packageOfEmptyEntries(std::size_t count,
                                  const std::function<ZipEntryBytes(std::size_t)>& entryAt) {
    std::string package = localHeader(pack({.name = "shared"}, 0));
    const std::size_t directoryOffset = package.size();
    for (std::size_t i = 0; i < count; ++i) {
        const ZipEntryBytes entry = entryAt(i);
        package += directoryRecord(pack(entry, 0));
    }
    const std::size_t directorySize = package.size() - directoryOffset;
    return package + zip64End(count, directorySize, directoryOffset, package.size()) +
           endRecord(0xFFFF, kInZip64Field, kInZip64Field);
}

std::string deflated(std::string_view bytes) {
    z_stream stream = {};
    constexpr int kRawWindow = -15;
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, kRawWindow, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::runtime_error("deflate could not be started");
    std::string packed(deflateBound(&stream, static_cast<uLong>(bytes.size())), '\0');
    std::string input(bytes);
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    const int status = deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    if (status != Z_STREAM_END)
        throw std::runtime_error("deflate did not end");
    return packed;
}

std::uint32_t crcOf(std::string_view bytes) {
    return static_cast<std::uint32_t>(
        crc32_z(0, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

std::string littleEndian(std::uint64_t number, std::size_t length) {
    std::string bytes;
    for (std::size_t i = 0; i < length; ++i) {
        bytes += static_cast<char>(number & 0xFF);
        number >>= 8;
    }
    return bytes;
}

std::string extraField(std::uint16_t id, std::string_view bytes) {
    return littleEndian(id, 2) + littleEndian(bytes.size(), 2) + std::string(bytes);
}

} // namespace docparser_tests
