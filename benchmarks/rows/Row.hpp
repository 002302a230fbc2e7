#pragma once

#include "benchmarks/harness/Meter.hpp"
#include "benchmarks/rows/Corpus.hpp"

#include <functional>
#include <string>
#include <vector>

namespace reference::docparser::benchmarks {

/// One row of the table: a way to do the work of a group.
struct Row {
    std::string name; ///< the group and who does its work: "full/text:library"
    /// Does the work of the group once, call by call.
    std::function<void(Meter&)> measure;
    /// Returns whether the row makes the same records as the library; empty if it makes none.
    std::function<bool()> isCorrect;
};

/// Returns the rows of every group:
///
///   full/text, lookup/text    each file to records, from memory
///   full/en, full/de          each product's records, from the root
///   lookup/en, lookup/de      the lookup index, from the root
///
/// \param corpus  must outlive the rows; its texts are read when a row first needs them
std::vector<Row> makeRows(const Corpus& corpus);

} // namespace reference::docparser::benchmarks
