#pragma once

#include "docparser/shared/RetrievalObserver.hpp"
#include "platform/Failure.hpp"

#include <string>

namespace reference::docparser {

/// Processes one file and ignores a failure: a damaged file counts as missing, and the caller
/// continues with the next file or location.
/// \param role, name, isTranslation  see RetrievalObserver::fileConsidered()
/// \param use  called once, without arguments; what it did before it threw is kept
template <class Use>
void useFile(FileRole role, const std::u16string& name, bool isTranslation,
             RetrievalObserver& observer, Use&& use) {
    observer.fileConsidered(role, name, isTranslation);
    observer.fileConcluded(platform::failureOf(use));
}

} // namespace reference::docparser
