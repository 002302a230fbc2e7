#pragma once

#include "docparser/Export.hpp"
#include "platform/except/IException.hpp"

#include <string>

namespace reference::docparser {

/// Thrown when a product has no resource file that could be used, at any place.
///
/// It can be caught as itself, IInternalException, IException, boost::exception or
/// boost::exception_detail::clone_base, and travels through boost::exception_ptr. It does not
/// derive from std::exception.
class DOCPARSER_EXPORT DocParserException : public foundation::core::except::IInternalException {
public:
    /// \param productName  the product that was asked for
    explicit DocParserException(std::u16string productName);
    DocParserException(const DocParserException&) = default;
    DocParserException(DocParserException&&) = default;
    DocParserException& operator=(const DocParserException&) = default;
    DocParserException& operator=(DocParserException&&) = default;
    ~DocParserException() noexcept override;

    /// The product that was asked for, to the code unit.
    const std::u16string& getProductName() const noexcept { return productName_; }

    /// "resource::docparser::DocParserException", whatever the product.
    const char* what() const noexcept override;

    /// A copy on the heap, which the caller owns.
    const boost::exception_detail::clone_base* clone() const override;

    /// Throws a copy, as DocParserException.
    [[noreturn]] void rethrow() const override;

private:
    std::u16string productName_;
};

} // namespace reference::docparser
