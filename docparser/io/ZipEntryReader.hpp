#pragma once

#include "docparser/discovery/ProductZipData.hpp"
#include "docparser/io/ReadProblem.hpp"

#include <string>

namespace reference::docparser {

/// Reads the entry of a product that lies in an open package.
///
/// Logs "Reading file: " and the product's name at severity 16 before it touches the package. An
/// entry that can't be delivered whole, because it is damaged, encrypted or larger than
/// platform::readLimits() allows, say, is logged as "Error reading file: " and the product's name,
/// also at severity 16, and is an empty text. Cost: the content is copied
/// through a stream in memory, which grows with it, and moved out once.
/// \param problem  where to say why the text is not the entry's; null: nobody asks
std::string openAndReadFile(const ProductZipData& product, ReadProblem* problem = nullptr);

} // namespace reference::docparser
