#pragma once

#include "benchmarks/generator/ProductFiles.hpp"

#include <cstddef>
#include <filesystem>
#include <vector>

namespace reference::docparser::benchmarks {

/// The products of a root of `count` products, the same in every run. How many items a product has
/// is long-tailed: half of them have fewer than two thirds of the mean of 27, one in a hundred has
/// six times as many.
std::vector<GeneratedProduct> makeProducts(std::size_t count);

/// The language that a product is translated into: German, Japanese or Russian, by turns.
Language translationOf(std::size_t productIndex) noexcept;

/// What a root was made of.
struct RootStatistics {
    TextStatistics full;
    TextStatistics lookup;
};

/// Writes a reference root of `count` products with full and lookup files, each in English and in
/// one other language. Lookup files of every third product lie in zip packages: by turns one
/// package a language with one entry, or one package with all languages and packaging metadata.
/// \param root  the folder; what it holds already stays or is overwritten
/// \throws std::exception  a folder or file cannot be written
RootStatistics generateRoot(const std::filesystem::path& root, std::size_t count);

/// Writes a root of one product whose English full file has about so many bytes.
void generateSingleFileRoot(const std::filesystem::path& root, std::size_t bytes);

} // namespace reference::docparser::benchmarks
