#include "docparser/ReferenceRoots.hpp"

#include "docparser/shared/Constants.hpp"

#include <utility>

namespace reference::docparser {

ReferenceRoots::ReferenceRoots(std::u16string referenceRoot)
    : root(std::move(referenceRoot)),
      lookupFolder(folderBelow(root, kLookupLevels)),
      referenceApiFolder(folderBelow(root, kReferenceApiLevels)) {}

} // namespace reference::docparser
