#pragma once

#include "tests/support/Schema.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <boost/json/value.hpp>

#include <cstddef>
#include <functional>
#include <string>

namespace docparser_tests {

/// Writes a file that a test reads repeatedly. Removes the old file first, because some file
/// systems write a file to disk at once if its content is replaced.
void writeAnew(const TemporaryFolder& folder, const std::string& name, const std::string& text);

/// Checks that a schema and a reader accept the same documents.
class Agreement {
public:
    /// \param schema   file name of the schema
    /// \param isRead   whether the reader accepts a file with this text
    Agreement(const std::string& schema, std::function<bool(const std::string& text)> isRead);

    /// Fails the test if only one of schema and reader accepts the document.
    /// \param change  describes the document in the failure message
    void check(const boost::json::value& document, const std::string& change);

    /// Fails the test unless at least `atLeast` documents were accepted and as many refused.
    /// Agreement only on valid or only on invalid documents would prove little.
    void expectBothVerdicts(std::size_t atLeast) const;

private:
    Schema schema_;
    std::function<bool(const std::string&)> isRead_;
    std::size_t accepted_ = 0;
    std::size_t refused_ = 0;
};

} // namespace docparser_tests
