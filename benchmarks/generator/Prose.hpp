#pragma once

#include "benchmarks/generator/Random.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace reference::docparser::benchmarks {

enum class Language { English, German, Russian, Japanese };

/// "en", "de", "ru" or "ja".
std::string_view languageCode(Language language) noexcept;

/// UTF-8 text for people in one language: Latin letters with and without umlauts, Cyrillic, or
/// Japanese.
class Prose {
public:
    Prose(Language language, std::uint64_t seed) noexcept : language_(language), random_(seed) {}

    /// A text of about so many bytes; a few carry a quotation mark, a line end or a sign beyond
    /// ASCII.
    std::string text(std::size_t bytes);

    /// A text with a long-tailed length: mostly somewhat below the mean, seldom three times it.
    std::string textAround(double meanBytes);

private:
    Language language_;
    Random random_;
};

/// An identifier as programs have them, "branchHeight": so many words in camel case.
std::string identifier(Random& random, std::size_t words);

/// A product's name, "copperbridge"; distinct for every index below 1600.
std::string productName(std::size_t index);

} // namespace reference::docparser::benchmarks
