#pragma once

#include "tools/refdoc/check/report/Report.hpp"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace refdoc_tests {

/// Makes findings of rules that exist only in tests.
class FindingMaker {
public:
    /// Starts a file. The findings that are made next are in it.
    void begin(std::string path, std::string product = {}) {
        file_ = std::make_shared<const refdoc::check::ReportedFile>(
            refdoc::check::ReportedFile{.path = std::move(path), .product = std::move(product)});
    }

    refdoc::check::ReportedFinding make(const refdoc::check::Rule& rule, std::string message,
                                        std::string cause = {}) const {
        return {.rule = &rule,
                .severity = rule.severity,
                .location = {.file = file_},
                .message = std::move(message),
                .cause = std::move(cause)};
    }

private:
    std::shared_ptr<const refdoc::check::ReportedFile> file_;
};

} // namespace refdoc_tests
