#pragma once

#include <boost/json/value.hpp>

#include <functional>
#include <random>
#include <string>
#include <vector>

namespace docparser_tests {

/// Visits a valid document and every document that differs from it in one position: each value
/// missing, replaced by each JSON type, or replaced by an array with an element of each type; each
/// array with an additional element of each type; each object with an unknown key of each type.
/// \param good   the valid document, an object whose keys need no escapes
/// \param visit  receives each document and a description of its change
void forEachDamage(const boost::json::value& good,
                   const std::function<void(const boost::json::value& document,
                                            const std::string& change)>& visit);

/// Returns a document with one to four random changes: a value is removed, replaced by another type
/// or by another value of the document, or a value of the document is added to it.
boost::json::value damagedAtRandom(const boost::json::value& good, std::mt19937& random);

} // namespace docparser_tests
