#include "docparser/io/ResourceFileReader.hpp"

#include "docparser/shared/DiagnosticChannel.hpp"
#include "platform/Failure.hpp"
#include "platform/ReadLimits.hpp"
#include "platform/path/FileStream.hpp"
#include "platform/path/Path.hpp"

#include <ios>

namespace reference::docparser {

namespace {

void readWhole(fl::filesystem::ifstream& stream, std::string& text) {
    stream.seekg(0, std::ios::end);
    const std::streamoff size = stream.tellg();
    if (size > 0 && static_cast<std::uint64_t>(size) > platform::readLimits().fileBytes)
        throw platform::LimitError("it is larger than the limit");
    // A size that is not known is negative and fails here, as more than a text can hold.
    text.resize(static_cast<std::size_t>(size));
    stream.seekg(0, std::ios::beg);
    stream.read(text.data(), size);
}

std::string readFile(const std::u16string& path, ReadProblem* problem) {
    std::string text;
    fl::filesystem::ifstream stream(fl::filesystem::make_native_access_form_with_cleanup_i18n(path),
                                    std::ios::in | std::ios::binary,
                                    fl::filesystem::share_mode::deny_none);
    if (!stream.is_open()) {
        if (problem)
            *problem = problemOfOpening(path, nullptr);
        return text;
    }
    // An empty text fails in the parser, so that the caller tries the next place.
    const std::exception_ptr failure = platform::failureOf([&] { readWhole(stream, text); });
    if (failure) {
        writeDiagnostic(kProblemSeverity, "Problem reading JSON file: ", path);
        if (problem)
            *problem = problemOf(failure);
    }
    return text;
}

} // namespace

std::string openAndReadFile(const std::u16string& path, ReadProblem* problem) {
    writeDiagnostic(kTraceSeverity, "Reading file: ", path);
    return readFile(path, problem);
}

std::string openAndReadFile(const ProductPathData& product, ReadProblem* problem) {
    return openAndReadFile(product.getFullPath(), problem);
}

} // namespace reference::docparser
