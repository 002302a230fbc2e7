#pragma once

#include <boost/exception/exception.hpp>

namespace foundation::core::except {

class IException : public boost::exception_detail::clone_base, public boost::exception {
public:
    ~IException() noexcept override;
    virtual const char* what() const noexcept = 0;
};

class IInternalException : public IException {
public:
    ~IInternalException() noexcept override;
};

} // namespace foundation::core::except
