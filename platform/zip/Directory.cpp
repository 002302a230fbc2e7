#include "platform/zip/Directory.hpp"

#include <algorithm>
#include <array>

namespace platform::zip {

namespace {

using namespace std::string_view_literals;

// The signatures of the records of a directory, and the lengths of their fixed parts.
constexpr std::string_view kEntryMagic = "PK\1\2"sv;
constexpr std::size_t kEntryLength = 46;
constexpr std::string_view kEndMagic = "PK\5\6"sv;
constexpr std::size_t kEndLength = 22;
constexpr std::string_view kZip64LocatorMagic = "PK\6\7"sv;
constexpr std::size_t kZip64LocatorLength = 20;
constexpr std::string_view kZip64EndMagic = "PK\6\6"sv;
constexpr std::size_t kZip64EndLength = 56;
constexpr std::size_t kLongestComment = 0xFFFF;

// The byte of an entry's record that has the UTF-8 flag, and the bit of the flag.
constexpr std::size_t kFlagOffset = 9;
constexpr unsigned char kUtf8NameFlag = 0x08;

/// Decodes a little-endian number.
std::uint64_t numberAt(std::string_view bytes, std::size_t offset, std::size_t length) noexcept {
    std::uint64_t number = 0;
    for (std::size_t i = length; i-- > 0;)
        number = number << 8 | static_cast<unsigned char>(bytes[offset + i]);
    return number;
}

/// Returns the name in the extra field for UTF-8 names, after its version and checksum.
std::string_view unicodeNameIn(std::string_view extraFields) noexcept {
    constexpr std::uint64_t kUnicodePathId = 0x7075;
    constexpr std::size_t kNameOffset = 4 + 5;
    while (extraFields.size() >= kNameOffset) {
        const std::string_view field = extraFields.substr(0, 4 + numberAt(extraFields, 2, 2));
        if (numberAt(field, 0, 2) == kUnicodePathId && field.size() >= kNameOffset)
            return field.substr(kNameOffset);
        extraFields.remove_prefix(field.size());
    }
    return {};
}

/// Reads bytes that must start with `magic`; returns false if they do not, or if the file ends.
bool readRecord(PackageFile& file, std::uint64_t offset, std::string_view magic,
                std::span<char> record) {
    return file.read(offset, record.data(), record.size()) == record.size() &&
           std::string_view(record.data(), record.size()).starts_with(magic);
}

std::optional<DirectoryLocation> zip64Location(PackageFile& file, std::string_view locator) {
    std::array<char, kZip64EndLength> end;
    if (!readRecord(file, numberAt(locator, 8, 8), kZip64EndMagic, end))
        return std::nullopt;
    const std::string_view record(end.data(), end.size());
    return DirectoryLocation{numberAt(record, 48, 8), numberAt(record, 40, 8)};
}

/// Returns the location that the end record at `position` of the file's tail states.
std::optional<DirectoryLocation> locationFrom(PackageFile& file, std::string_view tail,
                                              std::size_t position) {
    if (position >= kZip64LocatorLength) {
        const std::string_view locator =
            tail.substr(position - kZip64LocatorLength, kZip64LocatorLength);
        if (locator.starts_with(kZip64LocatorMagic))
            return zip64Location(file, locator);
    }
    const std::string_view end = tail.substr(position, kEndLength);
    return DirectoryLocation{numberAt(end, 16, 4), numberAt(end, 12, 4)};
}

bool isDirectory(PackageFile& file, const DirectoryLocation& location) {
    if (location.offset > file.size() || location.length > file.size() - location.offset ||
        location.length < kEntryLength)
        return false;
    std::array<char, kEntryMagic.size()> start;
    return readRecord(file, location.offset, kEntryMagic, start);
}

std::string readTail(PackageFile& file) {
    const std::uint64_t length =
        std::min<std::uint64_t>(file.size(), kZip64LocatorLength + kEndLength + kLongestComment);
    std::string tail(static_cast<std::size_t>(length), '\0');
    tail.resize(file.read(file.size() - length, tail.data(), tail.size()));
    return tail;
}

} // namespace

std::vector<DirectoryLocation> findDirectories(PackageFile& file) {
    std::vector<DirectoryLocation> locations;
    const std::string tail = readTail(file);
    for (std::size_t position = tail.find(kEndMagic);
         position != std::string::npos && tail.size() - position >= kEndLength;
         position = tail.find(kEndMagic, position + 1)) {
        const std::optional<DirectoryLocation> location = locationFrom(file, tail, position);
        if (location && std::ranges::find(locations, *location) == locations.end() &&
            isDirectory(file, *location))
            locations.push_back(*location);
    }
    return locations;
}

std::string readDirectory(PackageFile& file, const DirectoryLocation& location) {
    std::string directory(static_cast<std::size_t>(location.length), '\0');
    if (file.read(location.offset, directory.data(), directory.size()) != directory.size())
        directory.clear();
    return directory;
}

std::optional<DirectoryRecord> DirectoryReader::next() noexcept {
    const std::string_view rest = directory_.substr(position_);
    if (rest.size() < kEntryLength || !rest.starts_with(kEntryMagic))
        return std::nullopt;
    const std::size_t nameLength = numberAt(rest, 28, 2);
    const std::size_t extraLength = numberAt(rest, 30, 2);
    const std::size_t length = kEntryLength + nameLength + extraLength + numberAt(rest, 32, 2);
    if (rest.size() < length)
        return std::nullopt;
    const DirectoryRecord record{
        .offset = position_,
        .hasUtf8Flag = (static_cast<unsigned char>(rest[kFlagOffset]) & kUtf8NameFlag) != 0,
        .name = rest.substr(kEntryLength, nameLength),
        .unicodeName = unicodeNameIn(rest.substr(kEntryLength + nameLength, extraLength))};
    position_ += length;
    return record;
}

std::vector<FlaggedEntry> findFlaggedEntries(PackageFile& file) {
    for (const DirectoryLocation& location : findDirectories(file)) {
        const std::string directory = readDirectory(file, location);
        DirectoryReader reader(directory);
        std::vector<FlaggedEntry> flagged;
        std::uint64_t index = 0;
        for (auto record = reader.next(); record; record = reader.next(), ++index) {
            if (record->hasUtf8Flag)
                flagged.push_back({index, location.offset + record->offset + kFlagOffset});
        }
        if (reader.isAtEnd() && !flagged.empty())
            return flagged;
    }
    return {};
}

void clearUtf8Flags(std::span<const FlaggedEntry> entries, std::uint64_t offset,
                    std::span<char> bytes) noexcept {
    const std::uint64_t end = offset + bytes.size();
    auto entry = std::ranges::lower_bound(entries, offset, {}, &FlaggedEntry::flagOffset);
    for (; entry != entries.end() && entry->flagOffset < end; ++entry) {
        char& flags = bytes[entry->flagOffset - offset];
        flags = static_cast<char>(static_cast<unsigned char>(flags) & ~kUtf8NameFlag);
    }
}

} // namespace platform::zip
