#include "platform/package/NameFlags.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace opc::detail {

namespace {

using namespace std::string_view_literals;

// The records of a zip's directory: what they start with and how long their fixed part is.
constexpr std::string_view kEntryMagic = "PK\1\2"sv;
constexpr std::size_t kEntryLength = 46;
constexpr std::string_view kEndMagic = "PK\5\6"sv;
constexpr std::size_t kEndLength = 22;
constexpr std::string_view kZip64LocatorMagic = "PK\6\7"sv;
constexpr std::size_t kZip64LocatorLength = 20;
constexpr std::string_view kZip64EndMagic = "PK\6\6"sv;
constexpr std::size_t kZip64EndLength = 56;
constexpr std::size_t kLongestComment = 0xFFFF;

struct DirectoryPlace {
    std::uint64_t offset;
    std::uint64_t length;
};

/// A number of `length` bytes, least first.
std::uint64_t numberAt(std::string_view bytes, std::size_t offset, std::size_t length) {
    std::uint64_t number = 0;
    for (std::size_t i = length; i-- > 0;)
        number = number << 8 | static_cast<unsigned char>(bytes[offset + i]);
    return number;
}

/// Reads a record's fixed part; false when the file ends before or something else stands there.
bool readRecord(PackageFile& file, std::uint64_t offset, std::string_view magic,
                std::span<char> record) {
    return file.read(offset, record.data(), record.size()) == record.size() &&
           std::string_view(record.data(), record.size()).starts_with(magic);
}

std::optional<DirectoryPlace> zip64Directory(PackageFile& file, std::string_view locator) {
    std::array<char, kZip64EndLength> end;
    if (!readRecord(file, numberAt(locator, 8, 8), kZip64EndMagic, end))
        return std::nullopt;
    const std::string_view record(end.data(), end.size());
    return DirectoryPlace{numberAt(record, 48, 8), numberAt(record, 40, 8)};
}

/// Where the directory is, by the end record at `place` of the file's tail.
std::optional<DirectoryPlace> directoryBy(PackageFile& file, std::string_view tail,
                                          std::size_t place) {
    if (place >= kZip64LocatorLength) {
        const std::string_view locator =
            tail.substr(place - kZip64LocatorLength, kZip64LocatorLength);
        if (locator.starts_with(kZip64LocatorMagic))
            return zip64Directory(file, locator);
    }
    const std::string_view end = tail.substr(place, kEndLength);
    return DirectoryPlace{numberAt(end, 16, 4), numberAt(end, 12, 4)};
}

/// Follows a directory; empty unless it is one from its first byte to its last.
std::optional<std::vector<FlaggedEntry>> followDirectory(PackageFile& file, DirectoryPlace place) {
    if (place.offset > file.size() || place.length > file.size() - place.offset)
        return std::nullopt;
    std::vector<FlaggedEntry> flagged;
    const std::uint64_t end = place.offset + place.length;
    std::uint64_t offset = place.offset;
    for (std::uint64_t index = 0; offset < end; ++index) {
        std::array<char, kEntryLength> entry;
        if (!readRecord(file, offset, kEntryMagic, entry))
            return std::nullopt;
        const std::string_view record(entry.data(), entry.size());
        if ((static_cast<unsigned char>(record[9]) & kUtf8NameFlag) != 0)
            flagged.push_back({index, offset + 9});
        offset += kEntryLength + numberAt(record, 28, 2) + numberAt(record, 30, 2) +
                  numberAt(record, 32, 2);
    }
    if (offset != end)
        return std::nullopt;
    return flagged;
}

std::string readTail(PackageFile& file) {
    const std::uint64_t length =
        std::min<std::uint64_t>(file.size(), kZip64LocatorLength + kEndLength + kLongestComment);
    std::string tail(static_cast<std::size_t>(length), '\0');
    tail.resize(file.read(file.size() - length, tail.data(), tail.size()));
    return tail;
}

} // namespace

std::vector<FlaggedEntry> findFlaggedEntries(PackageFile& file) {
    const std::string tail = readTail(file);
    // The package's comment may hold the same bytes, so that the first end record is not the one.
    for (std::size_t place = tail.find(kEndMagic); place != std::string::npos;
         place = tail.find(kEndMagic, place + 1)) {
        if (tail.size() - place < kEndLength)
            break;
        const std::optional<DirectoryPlace> directory = directoryBy(file, tail, place);
        if (!directory)
            continue;
        if (auto flagged = followDirectory(file, *directory); flagged && !flagged->empty())
            return *std::move(flagged);
    }
    return {};
}

} // namespace opc::detail
