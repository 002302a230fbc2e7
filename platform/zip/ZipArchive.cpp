#include "platform/zip/ZipArchive.hpp"

#include "platform/Failure.hpp"
#include "platform/ReadLimits.hpp"
#include "platform/unicode/Transcoding.hpp"
#include "platform/zip/DirectoryCheck.hpp"

#include <algorithm>
#include <utility>

namespace platform::zip {

namespace {

// Enough for all records that point to a directory, even if the tail of a file is full of them.
constexpr std::uint64_t kEndRecordBytes = std::uint64_t{512} << 10;

// Larger entries are rare, and libzip does not hold their whole content in memory.
constexpr zip_uint64_t kMostSmallBytes = zip_uint64_t{1} << 20;

bool isSmallAndDeflated(const zip_stat_t& description) noexcept {
    constexpr zip_uint64_t kNeeded = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_CRC |
                                     ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD;
    return (description.valid & kNeeded) == kNeeded && description.comp_method == ZIP_CM_DEFLATE &&
           description.encryption_method == ZIP_EM_NONE && description.size <= kMostSmallBytes &&
           description.comp_size <= kMostSmallBytes;
}

std::string messageOf(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception& error) {
        return error.what();
    }
}

} // namespace

ZipArchive::ZipArchive(RegularFile file, std::u16string_view path)
    : source_(std::move(file)), path_(toUtf8(path)) {}

void ZipArchive::open() {
    if (archive_)
        return;
    try {
        readDirectory();
    } catch (const LimitError& error) {
        throw LimitError(openFailure(error.what()));
    } catch (const std::runtime_error& error) {
        throw ZipError(openFailure(error.what()));
    }
    source_.file().setAllowance(PackageFile::kUnlimited);
}

void ZipArchive::readDirectory() {
    allowReadingDirectory();
    checkDirectory(source_.file(), readLimits().directoryBytes);
    try {
        archive_ = openArchive({});
    } catch (const std::runtime_error&) {
        // A single ill-formed name may be the reason; findFlaggedEntries() explains how to open
        // such a package.
        hidden_ = flaggedEntries();
        if (hidden_.empty())
            throw;
        archive_ = openArchive(hidden_);
    }
}

void ZipArchive::allowReadingDirectory() noexcept {
    // A file can have thousands of end records: this bounds how often libzip reads the directory.
    const std::uint64_t directoryBytes = readLimits().directoryBytes;
    const bool isLimited = directoryBytes < PackageFile::kUnlimited - kEndRecordBytes;
    source_.file().setAllowance(isLimited ? directoryBytes + kEndRecordBytes
                                          : PackageFile::kUnlimited);
}

ZipHandle ZipArchive::openArchive(const std::vector<FlaggedEntry>& hidden) {
    ZipErrorInfo error;
    allowReadingDirectory();
    ZipHandle archive = source_.openArchive(error, hidden);
    // An archive can open after a failed read: libzip then looked for a better directory than the
    // one it took.
    const std::exception_ptr readFailure = source_.takeReadFailure();
    if (!archive && readFailure)
        std::rethrow_exception(readFailure);
    if (!archive)
        throw ZipError(error.message());
    return archive;
}

std::vector<FlaggedEntry> ZipArchive::flaggedEntries() {
    std::vector<FlaggedEntry> flagged;
    allowReadingDirectory();
    // If the directory cannot be read, the package is refused for the reason that libzip gave.
    ignoreFailure([&] { flagged = findFlaggedEntries(source_.file()); });
    return flagged;
}

std::string ZipArchive::openFailure(std::string_view reason) const {
    return "the package \"" + path_ + "\" cannot be opened: " + std::string(reason);
}

std::uint64_t ZipArchive::entryCount() const {
    if (!archive_)
        throw ZipError("the package \"" + path_ + "\" is not open");
    return static_cast<std::uint64_t>(zip_get_num_entries(archive_.get(), 0));
}

const char* ZipArchive::rawName(std::uint64_t index) const noexcept {
    const char* const raw = zip_get_name(archive_.get(), index, ZIP_FL_ENC_RAW);
    return raw ? raw : "";
}

std::u16string ZipArchive::entryName(std::uint64_t index) {
    const char* const raw = rawName(index);
    const bool isHidden = std::ranges::binary_search(hidden_, index, {}, &FlaggedEntry::index);
    if (isHidden || isWellFormedUtf8(raw))
        return toUtf16(raw);
    // libzip returns UTF-8 unchanged and converts CP437 to UTF-8.
    const char* const converted = zip_get_name(archive_.get(), index, ZIP_FL_ENC_STRICT);
    if (!converted)
        throw ZipError(entryFailure(index, zip_strerror(archive_.get())));
    return toUtf16(converted);
}

zip_stat_t ZipArchive::entryDescription(std::uint64_t index) {
    zip_stat_t description;
    zip_stat_init(&description);
    if (zip_stat_index(archive_.get(), index, 0, &description) != 0)
        throw ZipError(entryFailure(index, zip_strerror(archive_.get())));
    return description;
}

ZipFileHandle ZipArchive::openEntry(std::uint64_t index) {
    const zip_stat_t description = entryDescription(index);
    if (description.encryption_method != ZIP_EM_NONE)
        throw ZipError(entryFailure(index, "it is encrypted"));
    if (zip_compression_method_supported(description.comp_method, /*compress=*/0) == 0)
        throw ZipError(entryFailure(index, "compression method " +
                                               std::to_string(description.comp_method) +
                                               " is not supported"));
    ZipFileHandle entry(zip_fopen_index(archive_.get(), index, 0));
    if (!entry)
        throw ZipError(entryFailure(index, zip_strerror(archive_.get())));
    return entry;
}

std::unique_ptr<char[]> ZipArchive::readSmallEntry(std::uint64_t index,
                                                   const zip_stat_t& description) {
    std::unique_ptr<char[]> result;
    if (!isSmallAndDeflated(description))
        return result;
    const auto packedSize = static_cast<std::size_t>(description.comp_size);
    const auto size = static_cast<std::size_t>(description.size);
    // The failure is ignored: libzip reads the entry next and reports why if it fails too.
    ignoreFailure([&] {
        const std::unique_ptr<char[]> packed = readPacked(index, packedSize);
        if (!packed)
            return;
        auto content = std::make_unique_for_overwrite<char[]>(size);
        if (inflater_.inflate({packed.get(), packedSize}, {content.get(), size}, description.crc))
            result = std::move(content);
    });
    return result;
}

std::unique_ptr<char[]> ZipArchive::readPacked(std::uint64_t index, std::size_t length) {
    auto packed = std::make_unique_for_overwrite<char[]>(length);
    const ZipFileHandle entry(zip_fopen_index(archive_.get(), index, ZIP_FL_COMPRESSED));
    if (entry && zip_fread(entry.get(), packed.get(), length) == static_cast<zip_int64_t>(length))
        return packed;
    source_.takeReadFailure(); // otherwise entryFailure() would report it for a later failure
    return nullptr;
}

std::string ZipArchive::entryFailure(std::uint64_t index, std::string_view reason) {
    const std::exception_ptr readFailure = source_.takeReadFailure();
    // The raw name, because libzip may have no other.
    const std::string name = toUtf8(toUtf16(rawName(index)));
    return "entry " + std::to_string(index) + " \"" + name + "\" of the package \"" + path_ +
           "\" cannot be delivered: " +
           (readFailure ? messageOf(readFailure) : std::string(reason));
}

} // namespace platform::zip
