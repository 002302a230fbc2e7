#include "platform/zip/DirectoryCheck.hpp"

#include "platform/ReadLimits.hpp"
#include "platform/zip/Directory.hpp"

#include <algorithm>
#include <bit>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform::zip {

namespace {

// Limits the time that libzip spends on names with equal hashes, as the number of names that it
// visits in its hash table. Names that were not made to collide take one or two visits each.
constexpr std::uint64_t kAffordableVisits = std::uint64_t{1} << 25;

// In a larger table most visits miss the caches of the processor, so each counts several times.
constexpr std::size_t kNamesInCache = std::size_t{1} << 15;
constexpr std::uint64_t kCostOfCacheMiss = 4;

// A visit with an equal hash compares the names; comparing this many bytes counts as another visit.
constexpr std::size_t kBytesPerVisit = 64;

// A directory of this length has too few entries to need more visits than that: n entries take at
// least 46 n bytes and at most n * n / 2 visits.
constexpr std::uint64_t kShortDirectory = std::uint64_t{256} << 10;

// An entry can have a stored name, its conversion from CP437, and a name in an extra field.
constexpr std::size_t kFormsPerName = 3;

constexpr std::u16string_view kCp437Controls = u" ☺☻♥♦♣♠•◘○◙♂♀♪♫☼►◄↕‼¶§▬↨↑↓→←∟↔▲▼";
constexpr char16_t kCp437Delete = u'⌂';
constexpr std::u16string_view kCp437NonAscii =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒáíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
    u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
static_assert(kCp437Controls.size() == 32 && kCp437NonAscii.size() == 128);

char16_t fromCp437(unsigned char byte) noexcept {
    if (byte < kCp437Controls.size())
        return kCp437Controls[byte];
    if (byte < 0x7F)
        return byte;
    return byte == 0x7F ? kCp437Delete : kCp437NonAscii[byte - 0x80];
}

/// The hash function of libzip.
class NameHash {
public:
    void add(unsigned int byte) noexcept { value_ = value_ * 33 + byte; }

    void addUtf8(char16_t character) noexcept {
        if (character < 0x80) {
            add(character);
        } else if (character < 0x800) {
            add(0xC0U | character >> 6);
            add(0x80U | (character & 0x3FU));
        } else {
            add(0xE0U | character >> 12);
            add(0x80U | (character >> 6 & 0x3FU));
            add(0x80U | (character & 0x3FU));
        }
    }

    std::uint32_t value() const noexcept { return value_; }

private:
    std::uint32_t value_ = 5381;
};

/// A name as libzip stores it in its hash table.
struct IndexedName {
    std::uint32_t hash;
    std::string_view bytes;

    bool operator==(const IndexedName&) const = default;
};

IndexedName indexedName(std::string_view bytes) noexcept {
    NameHash hash;
    for (const char byte : bytes)
        hash.add(byte == '\0' ? ' ' : static_cast<unsigned char>(byte));
    return {hash.value(), bytes};
}

IndexedName indexedCp437Name(std::string_view bytes) noexcept {
    NameHash hash;
    for (const char byte : bytes)
        hash.addUtf8(fromCp437(static_cast<unsigned char>(byte)));
    return {hash.value(), bytes};
}

/// Returns every form of a name under which libzip may index an entry of a directory. libzip
/// chooses one by flags, checksums and guesses; the others do no harm, since names rarely collide.
std::vector<IndexedName> indexedNames(std::string_view directory) {
    const auto isPlain = [](char byte) { return byte >= ' ' && byte < '\x7F'; };
    std::vector<IndexedName> names;
    DirectoryReader reader(directory);
    for (auto record = reader.next(); record; record = reader.next()) {
        names.push_back(indexedName(record->name));
        if (!std::ranges::all_of(record->name, isPlain))
            names.push_back(indexedCp437Name(record->name));
        if (!record->unicodeName.empty())
            names.push_back(indexedName(record->unicodeName));
    }
    return names;
}

/// Returns how many visits libzip needs to put names into its hash table. Stops counting once the
/// result exceeds `affordableVisits`. The table here has no more buckets than that of libzip.
std::uint64_t visitsToIndex(const std::vector<IndexedName>& names, std::uint64_t affordableVisits) {
    constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
    const std::uint64_t cost = names.size() <= kNamesInCache ? 1 : kCostOfCacheMiss;
    std::vector<std::size_t> newest(std::bit_ceil(names.size() / kFormsPerName + 1), kNone);
    std::vector<std::size_t> older(names.size(), kNone);
    std::uint64_t visits = 0;
    for (std::size_t index = 0; index < names.size() && visits <= affordableVisits; ++index) {
        const IndexedName& name = names[index];
        std::size_t& bucket = newest[name.hash & (newest.size() - 1)];
        std::size_t visited = bucket;
        for (; visited != kNone && names[visited] != name; visited = older[visited]) {
            const bool isCompared = names[visited].hash == name.hash;
            visits += cost + (isCompared ? name.bytes.size() / kBytesPerVisit : 0);
        }
        if (visited == kNone)
            older[index] = std::exchange(bucket, index);
    }
    return visits;
}

} // namespace

void checkDirectory(PackageFile& file, std::uint64_t directoryBytes) {
    if (file.size() <= std::min(directoryBytes, kShortDirectory))
        return;
    std::uint64_t visits = 0;
    for (const DirectoryLocation& location : findDirectories(file)) {
        if (location.length > directoryBytes)
            throw LimitError("its directory is larger than the limit of " +
                             std::to_string(directoryBytes) + " bytes");
        if (location.length <= kShortDirectory)
            continue;
        const std::string directory = readDirectory(file, location);
        visits += visitsToIndex(indexedNames(directory), kAffordableVisits - visits);
        if (visits > kAffordableVisits)
            throw std::runtime_error("too many names of its entries have equal hashes");
    }
}

} // namespace platform::zip
