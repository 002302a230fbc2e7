#pragma once

#include <boost/json/value.hpp>

#include <filesystem>
#include <memory>
#include <string>

namespace docparser_tests {

/// A validator for one of the JSON Schemas in the folder `schema/`.
class Schema {
public:
    /// \param name        file name of the schema
    /// \param definition  the definition to validate against; empty for the whole schema
    /// \throws std::exception  the file or definition is missing, or the file is not a schema
    explicit Schema(const std::string& name, const std::string& definition = {});
    ~Schema();

    /// The schema itself.
    const boost::json::value& text() const noexcept { return text_; }

    /// Returns the violations of the schema, one per line; empty for a valid document.
    std::string problemsOf(const boost::json::value& document) const;

    bool accepts(const boost::json::value& document) const;

private:
    struct Parsed;

    boost::json::value text_;
    std::unique_ptr<const Parsed> parsed_;
};

/// Reads a JSON file.
/// \throws std::exception  the file is missing or is not valid JSON
boost::json::value readJson(const std::filesystem::path& file);

} // namespace docparser_tests
