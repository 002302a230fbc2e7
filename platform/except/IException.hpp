#pragma once

#include "platform/Export.hpp"

#include <boost/exception/exception.hpp>

namespace foundation::core::except {

/// Root of the application's exceptions, which Boost.Exception can clone and rethrow.
///
/// Not derived from std::exception: catch this type, one of its bases, or the type that was thrown.
/// Copies share the error information of boost::exception, which is reference counted.
class DOCPARSER_PLATFORM_EXPORT IException : public boost::exception_detail::clone_base,
                                             public boost::exception {
public:
    IException() = default;
    IException(const IException&) = default;
    IException(IException&&) = default;
    IException& operator=(const IException&) = default;
    IException& operator=(IException&&) = default;
    ~IException() noexcept override;

    /// Returns a fixed string that names the type of failure; it lives as long as the exception.
    virtual const char* what() const noexcept = 0;
};

/// Base of the exceptions by which a component reports its own failures.
class DOCPARSER_PLATFORM_EXPORT IInternalException : public IException {
public:
    IInternalException() = default;
    IInternalException(const IInternalException&) = default;
    IInternalException(IInternalException&&) = default;
    IInternalException& operator=(const IInternalException&) = default;
    IInternalException& operator=(IInternalException&&) = default;
    ~IInternalException() noexcept override;
};

} // namespace foundation::core::except
