#include "platform/package/ZipArchive.hpp"

#include "platform/Failure.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/unicode/Transcoding.hpp"

#include <algorithm>
#include <utility>

namespace opc::detail {

namespace {

// Room for some hundred thousand entries. It bounds what libzip holds in memory, how often a file
// with many ends can make it read one directory, and the time that it takes to tell apart names
// made to share a hash.
constexpr std::uint64_t kLongestDirectory = std::uint64_t{8} << 20;

} // namespace

ZipArchive::ZipArchive(platform::RegularFile file, std::u16string_view path)
    : source_(std::move(file)), path_(fl::i18n::to_string(path)) {}

void ZipArchive::open() {
    if (archive_)
        return;
    std::string reason;
    std::vector<FlaggedEntry> hidden;
    ZipHandle archive = openArchive(reason, hidden);
    if (!archive) {
        hidden = flaggedEntries();
        if (!hidden.empty())
            archive = openArchive(reason, hidden);
    }
    if (!archive)
        throw PackageError("the package \"" + path_ + "\" cannot be opened: " + reason);
    source_.file().allowReading(PackageFile::kUnlimited);
    archive_ = std::move(archive);
    hidden_ = std::move(hidden);
}

ZipHandle ZipArchive::openArchive(std::string& reason, const std::vector<FlaggedEntry>& hidden) {
    ZipErrorInfo error;
    source_.file().allowReading(kLongestDirectory);
    ZipHandle archive = source_.openArchive(error, hidden);
    // Reads may have failed all the same, in looking for a better directory than the one taken.
    reason = reasonOf(error.text());
    return archive;
}

std::vector<FlaggedEntry> ZipArchive::flaggedEntries() {
    std::vector<FlaggedEntry> flagged;
    source_.file().allowReading(kLongestDirectory);
    // A directory that cannot be read to its end stays refused, for the reason that libzip gave.
    static_cast<void>(
        platform::ignoreFailure([&] { flagged = findFlaggedEntries(source_.file()); }));
    return flagged;
}

std::uint64_t ZipArchive::entryCount() const {
    if (!archive_)
        throw PackageError("the package \"" + path_ + "\" is not open");
    return static_cast<std::uint64_t>(zip_get_num_entries(archive_.get(), 0));
}

const char* ZipArchive::rawName(std::uint64_t index) const noexcept {
    const char* const raw = zip_get_name(archive_.get(), index, ZIP_FL_ENC_RAW);
    return raw ? raw : "";
}

std::u16string ZipArchive::entryName(std::uint64_t index) {
    const char* const raw = rawName(index);
    const bool isHidden = std::ranges::binary_search(hidden_, index, {}, &FlaggedEntry::index);
    if (isHidden || platform::isWellFormedUtf8(raw))
        return fl::i18n::to_ustring(raw);
    // What libzip takes for UTF-8 comes back as it is, from CP437 it is converted.
    const char* const converted = zip_get_name(archive_.get(), index, ZIP_FL_ENC_STRICT);
    if (!converted)
        throw PackageError(entryFailure(index, zip_strerror(archive_.get())));
    return fl::i18n::to_ustring(converted);
}

zip_stat_t ZipArchive::entryDescription(std::uint64_t index) {
    zip_stat_t description;
    zip_stat_init(&description);
    if (zip_stat_index(archive_.get(), index, 0, &description) != 0)
        throw PackageError(entryFailure(index, zip_strerror(archive_.get())));
    return description;
}

ZipFileHandle ZipArchive::openEntry(std::uint64_t index) {
    const zip_stat_t description = entryDescription(index);
    if (description.encryption_method != ZIP_EM_NONE)
        throw PackageError(entryFailure(index, "it is encrypted"));
    if (zip_compression_method_supported(description.comp_method, /*compress=*/0) == 0)
        throw PackageError(entryFailure(index, "compression method " +
                                                   std::to_string(description.comp_method) +
                                                   " is not supported"));
    ZipFileHandle entry(zip_fopen_index(archive_.get(), index, 0));
    if (!entry)
        throw PackageError(entryFailure(index, zip_strerror(archive_.get())));
    return entry;
}

std::string ZipArchive::entryFailure(std::uint64_t index, std::string_view reason) {
    // The raw name, since the reason may be that there is no other.
    const std::string name = fl::i18n::to_string(fl::i18n::to_ustring(rawName(index)));
    return "entry " + std::to_string(index) + " \"" + name + "\" of the package \"" + path_ +
           "\" cannot be delivered: " + reasonOf(reason);
}

std::string ZipArchive::reasonOf(std::string_view reason) {
    const std::string readFailure = source_.takeReadFailure();
    return readFailure.empty() ? std::string(reason) : readFailure;
}

} // namespace opc::detail
