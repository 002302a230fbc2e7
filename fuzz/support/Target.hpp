#pragma once

#include <cstddef>
#include <cstdint>

/// What each target defines: runs the library on one input and ends the process when the library
/// breaks a promise. The name and the types are libFuzzer's.
/// \returns  0, always
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
