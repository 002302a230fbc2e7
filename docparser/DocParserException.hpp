#pragma once

#include "docparser/Export.hpp"
#include "platform/except/IException.hpp"

#include <string>

namespace reference::docparser {

/// Thrown if no folder has a usable resource file of a product.
///
/// It can be caught as its own type, IInternalException, IException, boost::exception or
/// boost::exception_detail::clone_base, and can be stored in a boost::exception_ptr. It does not
/// derive from std::exception.
class DOCPARSER_EXPORT DocParserException : public foundation::core::except::IInternalException {
public:
    /// \param productName  the product that was requested
    explicit DocParserException(std::u16string productName);
    DocParserException(const DocParserException&) = default;
    DocParserException(DocParserException&&) = default;
    DocParserException& operator=(const DocParserException&) = default;
    DocParserException& operator=(DocParserException&&) = default;
    ~DocParserException() noexcept override;

    /// Returns the requested product exactly as it was given.
    const std::u16string& getProductName() const noexcept { return productName_; }

    /// Returns "resource::docparser::DocParserException" for every product.
    const char* what() const noexcept override;

    /// Returns a copy on the heap, which the caller owns.
    const boost::exception_detail::clone_base* clone() const override;

    /// Throws a copy, as DocParserException.
    [[noreturn]] void rethrow() const override;

private:
    std::u16string productName_;
};

} // namespace reference::docparser
