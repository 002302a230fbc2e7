#pragma once

#include <cstddef>
#include <cstdint>

/// Runs the library on one input and aborts if the library breaks a promise. Each target defines
/// this function; libFuzzer fixes its name and types. \returns  always 0
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
