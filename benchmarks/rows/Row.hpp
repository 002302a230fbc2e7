#pragma once

#include "benchmarks/harness/Meter.hpp"
#include "benchmarks/rows/Corpus.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace reference::docparser::benchmarks {

/// One line of the table: some way to do the work of its group.
struct Row {
    std::string group; ///< the work, "full/text"; rows of a group have the same input
    std::string name;  ///< who does it, "library"
    /// Does the whole work once, measured call by call.
    std::function<void(Meter&)> pass;
    /// Digest of everything that the work results in; none for a row that makes no records.
    std::function<std::uint64_t()> digest;
};

/// The rows of every group over one root:
///
///   full/text, lookup/text          each text to records, without the disk
///   full/en, full/de                each product's records from the root
///   lookup/en, lookup/de            the lookup index of the root, packages included
///
/// Each group has the floors "read" (where it reads), "parse" and "parse and copy", both also with
/// the system's shared Boost.JSON, the peers and the library. Texts are read from the disk when a
/// row first needs them.
std::vector<Row> makeRows(std::shared_ptr<const Corpus> corpus);

/// The parts of the library's work, group by group:
///
///   full/parts    read, parse, build and whole (read, parse and build) of every full file
///   lookup/parts  walk, read, inflate, parse, build, merge and whole of a German retrieval
std::vector<Row> makePartRows(std::shared_ptr<const Corpus> corpus);

/// \throws std::runtime_error  two rows of a group that make records make different ones
void requireEqualResults(const std::vector<Row>& rows);

} // namespace reference::docparser::benchmarks
