#pragma once

#include <cstddef>
#include <functional>

namespace refdoc {

/// Calls a function with each number below `count`, on as many threads as the processors can run at
/// a time. The calling thread is one of them.
///
/// Calls begin in the order of the numbers. After a call has thrown, no further calls begin. Throws
/// what the call with the lowest number has thrown, which therefore does not depend on the threads.
///
/// \param call  is called on several threads at a time
void forEachInParallel(std::size_t count, const std::function<void(std::size_t number)>& call);

/// The same for calls that take so long, or so much memory, that the number of threads matters.
/// \param mostThreads  the calling thread included
void forEachInParallel(std::size_t count, std::size_t mostThreads,
                       const std::function<void(std::size_t number)>& call);

} // namespace refdoc
