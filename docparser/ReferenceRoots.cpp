#include "docparser/ReferenceRoots.hpp"

#include "docparser/shared/Constants.hpp"

#include <string_view>
#include <utility>

namespace reference::docparser {

namespace {

std::u16string folderBelow(const std::u16string& root, std::u16string_view name) {
    std::u16string folder = root;
    folder.append(1, kPathSeparator).append(kDocCatalogFolder);
    folder.append(1, kPathSeparator).append(name);
    return folder;
}

} // namespace

ReferenceRoots::ReferenceRoots(std::u16string referenceRoot)
    : root(std::move(referenceRoot)),
      lookupFolder(folderBelow(root, kLookupFolder)),
      referenceApiFolder(folderBelow(root, kReferenceApiFolder)) {}

} // namespace reference::docparser
