#include "docparser/io/ZipEntryReader.hpp"

#include "docparser/shared/DiagnosticChannel.hpp"
#include "platform/Failure.hpp"
#include "platform/package/ContentSource.hpp"
#include "platform/package/StreamHelper.hpp"

#include <sstream>
#include <utility>

namespace reference::docparser {

using foundation::log::kSeverityTrace;

namespace {

void copyEntry(const ProductZipData& product, std::ostream& output) {
    const auto source = product.getFileSystemManager().getFileContentSource(
        product.getEntry(), opc::TransformMode::Decoded);
    opc::StreamHelper::copyStreamToStream(*source->openInputStream(), output);
}

} // namespace

std::string openAndReadFile(const ProductZipData& product, ReadProblem* problem) {
    docParserLog().write(kSeverityTrace, "Reading file: ", product.getName());
    std::string text;
    // An empty text fails in the parser, so that this product alone is left out.
    const std::exception_ptr failure = platform::failureOf([&] {
        std::ostringstream content;
        // By default a stream hides that an allocation failed.
        content.exceptions(std::ios::badbit);
        copyEntry(product, content);
        text = std::move(content).str();
    });
    if (failure) {
        docParserLog().write(kSeverityTrace, "Error reading file: ", product.getName());
        if (problem)
            *problem = problemOf(failure);
    }
    return text;
}

} // namespace reference::docparser
