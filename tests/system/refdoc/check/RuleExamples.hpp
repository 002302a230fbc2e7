#pragma once

#include <string>
#include <vector>

namespace refdoc_tests {

/// How a file of an example is written.
enum class Form {
    Plain,
    ByteOrderMark, ///< with a byte-order mark before the content
    OverLimit,     ///< with one byte more than a file may have; without content
    Folder,
    Missing,    ///< a folder of resource files that does not exist; otherwise both do
    Unopenable, ///< a link to a file that does not exist or, on Windows, a locked file
    Encrypted   ///< an encrypted entry of a package
};

/// A file of an example. Files of the same package have paths like "Orchard.zip!in/Orchard.json".
struct ExampleFile {
    std::string path;
    std::string content{};
    Form form = Form::Plain;
};

/// An install folder that violates one rule, and the finding that `refdoc check` prints. The lines
/// after the first name related locations.
struct RuleExample {
    std::string rule;
    std::vector<ExampleFile> files;
    std::string finding;
};

/// One example for each rule. docs/check.md shows them.
const std::vector<RuleExample>& ruleExamples();

} // namespace refdoc_tests
