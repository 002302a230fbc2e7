#pragma once

#include "tests/support/Schema.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <boost/json/value.hpp>

#include <cstddef>
#include <functional>
#include <string>

namespace docparser_tests {

/// Writes the text of the one file that a test reads again and again.
///
/// The file is a new one each time: a file that is cut and filled anew is written through to the
/// disk by some file systems, which takes longer than all the rest.
void writeAnew(const TemporaryFolder& folder, const std::string& name, const std::string& text);

/// Compares a schema's verdicts with those of what reads the files.
class Agreement {
public:
    /// \param schema   the schema's file
    /// \param isRead   whether the reader accepts a file of this text
    Agreement(const std::string& schema, std::function<bool(const std::string& text)> isRead);

    /// Fails the test when the two differ about the document.
    void check(const boost::json::value& document, const std::string& change);

    /// Fails the test unless at least so many documents were accepted and as many refused: an
    /// agreement about documents of one sort would prove little.
    void expectBothVerdicts(std::size_t atLeast) const;

private:
    Schema schema_;
    std::function<bool(const std::string&)> isRead_;
    std::size_t accepted_ = 0;
    std::size_t refused_ = 0;
};

} // namespace docparser_tests
