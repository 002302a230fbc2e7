#pragma once

#include <boost/json/value.hpp>

#include <filesystem>
#include <memory>
#include <string>

namespace docparser_tests {

/// One of the JSON Schemas in the folder `schema/`, as a validator understands it.
class Schema {
public:
    /// \param name        the schema's file
    /// \param definition  one of its definitions, which alone documents are validated by; empty:
    /// the
    ///                    whole schema
    /// \throws std::exception  there is no such file or definition, or the file is not a schema
    explicit Schema(const std::string& name, const std::string& definition = {});
    ~Schema();

    /// The schema itself.
    const boost::json::value& text() const noexcept { return text_; }

    /// What the document breaks, a line for each; empty for a valid document.
    std::string problemsOf(const boost::json::value& document) const;

    bool accepts(const boost::json::value& document) const;

private:
    struct Parsed;

    boost::json::value text_;
    std::unique_ptr<const Parsed> parsed_;
};

/// The document in a JSON file.
/// \throws std::exception  there is no such file, or it holds no JSON
boost::json::value readJson(const std::filesystem::path& file);

} // namespace docparser_tests
