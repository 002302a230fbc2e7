#include "docparser/io/ResourceFileReader.hpp"

#include "docparser/shared/DiagnosticChannel.hpp"
#include "platform/ReadLimits.hpp"
#include "platform/except/Completes.hpp"
#include "platform/path/FileStream.hpp"
#include "platform/path/Path.hpp"

#include <ios>
#include <stdexcept>

namespace reference::docparser {

namespace {

void readWhole(fl::filesystem::ifstream& stream, std::string& text) {
    stream.seekg(0, std::ios::end);
    const std::streamoff size = stream.tellg();
    if (size > 0 && static_cast<std::uint64_t>(size) > platform::readLimits().fileBytes)
        throw std::length_error("the file is larger than a resource file may be");
    // A size that is not known is negative and fails here, as more than a text can hold.
    text.resize(static_cast<std::size_t>(size));
    stream.seekg(0, std::ios::beg);
    stream.read(text.data(), size);
}

std::string readFile(const std::u16string& path) {
    std::string text;
    fl::filesystem::ifstream stream(fl::filesystem::make_native_access_form_with_cleanup_i18n(path),
                                    std::ios::in | std::ios::binary,
                                    fl::filesystem::share_mode::deny_none);
    if (!stream.is_open())
        return text;
    // An empty text fails in the parser, so that the caller tries the next place.
    const bool isRead = foundation::core::except::completes([&] { readWhole(stream, text); });
    if (!isRead)
        docParserLog().write(foundation::log::kSeverityProblem,
                             "Problem reading JSON file: ", path);
    return text;
}

} // namespace

std::string openAndReadFile(const std::u16string& path) {
    docParserLog().write(foundation::log::kSeverityTrace, "Reading file: ", path);
    return readFile(path);
}

std::string openAndReadFile(const ProductPathData& product) {
    return openAndReadFile(product.getFullPath());
}

} // namespace reference::docparser
