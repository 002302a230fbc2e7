#pragma once

#include "docparser/shared/RetrievalObserver.hpp"
#include "platform/Failure.hpp"

#include <string>

namespace reference::docparser {

/// Reads and uses one file, and ignores any failure: a damaged file counts as missing, so that the
/// caller continues with the next file or location. The failure goes to the observer.
/// \param role, name, isTranslation  see RetrievalObserver::fileConsidered()
/// \param use  called once, without arguments; if it throws, its effects until then remain
template <class Use>
void useFile(FileRole role, const std::u16string& name, bool isTranslation,
             RetrievalObserver& observer, Use&& use) {
    observer.fileConsidered(role, name, isTranslation);
    observer.fileConcluded(platform::failureOf(use));
}

} // namespace reference::docparser
