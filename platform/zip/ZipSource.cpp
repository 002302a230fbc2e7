#include "platform/zip/ZipSource.hpp"

#include "platform/system/Cancellation.hpp"

#include <exception>
#include <utility>

namespace platform::zip {

namespace {

constexpr zip_int64_t kFailed = -1;

} // namespace

ZipHandle ZipSource::openArchive(ZipErrorInfo& error, std::span<const FlaggedEntry> hidden) {
    ZipSourceHandle source(zip_source_function_create(&ZipSource::serve, this, error.get()));
    if (!source)
        return nullptr;
    hidden_ = hidden;
    ZipHandle archive(zip_open_from_source(source.get(), ZIP_RDONLY, error.get()));
    hidden_ = {};
    // An open archive owns the source; after a failure, the handle still owns it.
    if (archive)
        static_cast<void>(source.release());
    return archive;
}

zip_int64_t ZipSource::serve(void* self, void* data, zip_uint64_t length,
                             zip_source_cmd_t command) {
    return static_cast<ZipSource*>(self)->serve(data, length, command);
}

zip_int64_t ZipSource::serve(void* data, zip_uint64_t length, zip_source_cmd_t command) {
    switch (command) {
    case ZIP_SOURCE_OPEN: position_ = 0; return 0;
    case ZIP_SOURCE_READ: return read(static_cast<char*>(data), static_cast<std::size_t>(length));
    case ZIP_SOURCE_SEEK: return seek(data, length);
    case ZIP_SOURCE_TELL: return static_cast<zip_int64_t>(position_);
    case ZIP_SOURCE_STAT: return describe(*static_cast<zip_stat_t*>(data));
    case ZIP_SOURCE_ERROR: return zip_error_to_data(error_.get(), data, length);
    case ZIP_SOURCE_CLOSE:
    case ZIP_SOURCE_FREE:         // the destructor closes the file
    case ZIP_SOURCE_ACCEPT_EMPTY: // no: an empty file is not an archive
        return 0;
    case ZIP_SOURCE_SUPPORTS:
        return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE,
                                              ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE,
                                              ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL, ZIP_SOURCE_SUPPORTS,
                                              ZIP_SOURCE_ACCEPT_EMPTY, -1);
    default: zip_error_set(error_.get(), ZIP_ER_OPNOTSUPP, 0); return kFailed;
    }
}

zip_int64_t ZipSource::read(char* buffer, std::size_t length) {
    // Unwinding the frames of libzip would leak what they hold, so neither a cancellation nor an
    // exception may pass through them. ZipEntryStream lets a cancellation pass between two reads.
    const CancellationHold hold;
    try {
        const std::size_t count = file_.read(position_, buffer, length);
        clearUtf8Flags(hidden_, position_, {buffer, count});
        position_ += count;
        return static_cast<zip_int64_t>(count);
    } catch (const std::exception&) {
        readFailure_ = std::current_exception();
        zip_error_set(error_.get(), ZIP_ER_READ, 0);
        return kFailed;
    }
}

zip_int64_t ZipSource::seek(void* target, zip_uint64_t length) {
    const zip_int64_t position =
        zip_source_seek_compute_offset(position_, file_.size(), target, length, error_.get());
    if (position < 0)
        return kFailed;
    position_ = static_cast<std::uint64_t>(position);
    return 0;
}

zip_int64_t ZipSource::describe(zip_stat_t& description) const {
    zip_stat_init(&description);
    description.size = file_.size();
    description.valid = ZIP_STAT_SIZE;
    return sizeof description;
}

} // namespace platform::zip
