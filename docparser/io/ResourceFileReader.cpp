#include "docparser/io/ResourceFileReader.hpp"

#include "docparser/io/ZipPackage.hpp"
#include "docparser/shared/DiagnosticChannel.hpp"
#include "platform/Failure.hpp"
#include "platform/ReadLimits.hpp"
#include "platform/package/ContentSource.hpp"
#include "platform/package/StreamHelper.hpp"
#include "platform/path/FileStream.hpp"
#include "platform/path/Path.hpp"

#include <ios>
#include <sstream>
#include <utility>

namespace reference::docparser {

namespace {

void announceReading(const std::u16string& subject) {
    writeDiagnostic(kTraceSeverity, "Reading file: ", subject);
}

// What is thrown for a path that cannot name a file depends on the application's path library.
fl::filesystem::ifstream openFile(const std::u16string& path, RetrievalObserver& observer) {
    try {
        return {fl::filesystem::make_native_access_form_with_cleanup_i18n(path),
                std::ios::in | std::ios::binary, fl::filesystem::share_mode::deny_none};
    } catch (...) {
        observer.readFailed(nullptr);
        throw;
    }
}

void readWhole(fl::filesystem::ifstream& stream, std::string& content) {
    stream.seekg(0, std::ios::end);
    const std::streamoff size = stream.tellg();
    const std::uint64_t limit = platform::readLimits().fileBytes;
    if (size > 0 && static_cast<std::uint64_t>(size) > limit)
        throw platform::LimitError("larger than the limit of " + std::to_string(limit) + " bytes");
    // An unknown size is negative. The cast makes it larger than any string, so resize() throws.
    content.resize(static_cast<std::size_t>(size));
    stream.seekg(0, std::ios::beg);
    stream.read(content.data(), size);
}

} // namespace

std::optional<std::string> openAndReadFile(const std::u16string& path,
                                           RetrievalObserver& observer) {
    announceReading(path);
    fl::filesystem::ifstream stream = openFile(path, observer);
    if (!stream.is_open()) {
        observer.readFailed(nullptr);
        return std::nullopt;
    }
    std::string content;
    // Nothing is thrown: the parser rejects a string that was not read completely.
    if (const auto failure = platform::failureOf([&] { readWhole(stream, content); })) {
        observer.readFailed(failure);
        writeDiagnostic(kProblemSeverity, "Problem reading JSON file: ", path);
    }
    return content;
}

std::string openAndReadFile(const ProductPathData& product, RetrievalObserver& observer) {
    return openAndReadFile(product.getFullPath(), observer).value_or(std::string());
}

std::string openAndReadFile(const ProductZipData& product, RetrievalObserver& observer) {
    announceReading(product.getName());
    std::string content;
    // Nothing is thrown: the parser rejects the empty string.
    const auto failure = platform::failureOf([&] {
        std::ostringstream stream;
        // Reports a failed allocation as such and not as a failed write.
        stream.exceptions(std::ios::badbit);
        {
            const auto source = product.getFileSystemManager().getFileContentSource(
                product.getEntry(), opc::TransformMode(1));
            opc::StreamHelper::copyStreamToStream(*source->openInputStream(), stream);
        }
        content = std::move(stream).str();
    });
    if (failure) {
        observer.readFailed(failure);
        writeDiagnostic(kTraceSeverity, "Error reading file: ", product.getName());
    }
    return content;
}

const std::u16string& fileNameOf(const ProductPathData& product) {
    return product.getFullPath();
}

const std::u16string& fileNameOf(const ProductZipData& product) {
    return entryNameOf(product.getEntry());
}

} // namespace reference::docparser
