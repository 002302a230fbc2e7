#pragma once

#include "docparser/c/docparser.h"
#include "platform/Failure.hpp"

#include <exception>
#include <stdexcept>
#include <utility>

namespace reference::docparser::c {

/// An argument breaks the contract of a function.
class InvalidArgument : public std::runtime_error {
public:
    using runtime_error::runtime_error;
};

/// A product has no usable resource file.
class NotFound : public std::runtime_error {
public:
    using runtime_error::runtime_error;
};

/// Returns the status for the failure of a function, and remembers the reason as the last error of
/// the thread. Allocates nothing.
/// \param failure  null if the function succeeded, which clears the last error
docparser_status recordEnding(const std::exception_ptr& failure) noexcept;

/// Returns the last error of the thread.
const char* lastError() noexcept;

/// Runs the body of a function of the interface, and returns the status that it ends with. Lets the
/// cancellation of the thread pass.
template <class Body>
docparser_status run(Body&& body) {
    return recordEnding(platform::failureOf(std::forward<Body>(body)));
}

} // namespace reference::docparser::c
