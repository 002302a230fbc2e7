#include "docparser/io/ZipEntryReader.hpp"

#include "docparser/shared/DiagnosticChannel.hpp"
#include "platform/Failure.hpp"
#include "platform/package/ContentSource.hpp"
#include "platform/package/StreamHelper.hpp"

namespace reference::docparser {

std::string openAndReadFile(const ProductZipData& product, ReadProblem* problem) {
    writeDiagnostic(kTraceSeverity, "Reading file: ", product.getName());
    std::string text;
    // An empty text fails in the parser, so that this product alone is left out.
    const std::exception_ptr failure = platform::failureOf([&] {
        const auto source = product.getFileSystemManager().getFileContentSource(
            product.getEntry(), opc::TransformMode::Decoded);
        const auto stream = source->openInputStream();
        text = opc::StreamHelper::readAll(*stream);
    });
    if (failure) {
        writeDiagnostic(kTraceSeverity, "Error reading file: ", product.getName());
        if (problem)
            *problem = problemOf(failure);
    }
    return text;
}

} // namespace reference::docparser
