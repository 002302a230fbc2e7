#pragma once

#include "platform/package/PackageError.hpp"
#include "platform/zip/ZipArchive.hpp"

#include <utility>

namespace opc {

/// Runs a step of the zip reader and returns its result; a ZipError becomes a PackageError with the
/// same message.
template <class Step>
auto withPackageErrors(Step&& step) {
    try {
        return std::forward<Step>(step)();
    } catch (const platform::zip::ZipError& error) {
        throw PackageError(error.what());
    }
}

} // namespace opc
