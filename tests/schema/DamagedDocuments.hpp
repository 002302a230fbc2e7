#pragma once

#include <boost/json/value.hpp>

#include <functional>
#include <random>
#include <string>
#include <vector>

namespace docparser_tests {

/// Hands over every document that differs from a good one in one place: each value missing, each
/// value of every other kind or an unknown word, each array with an element of every kind more or
/// instead, each object with an unknown key of every kind.
/// \param good   an object whose keys need no escapes
/// \param visit  takes each document, with words that tell it from the others
void forEachDamage(const boost::json::value& good,
                   const std::function<void(const boost::json::value& document,
                                            const std::string& change)>& visit);

/// A document that differs from a good one in one to four places, each changed in a way chosen at
/// random: as above, or by a value of another place of the document.
boost::json::value damagedAtRandom(const boost::json::value& good, std::mt19937& random);

} // namespace docparser_tests
