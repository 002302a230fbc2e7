#include "docparser/DocParserException.hpp"

#include <utility>

namespace reference::docparser {

DocParserException::DocParserException(std::u16string productName)
    : productName_(std::move(productName)) {}

DocParserException::~DocParserException() noexcept = default;

const char* DocParserException::what() const noexcept {
    // Callers compare this string, so it must not change.
    return "resource::docparser::DocParserException";
}

const boost::exception_detail::clone_base* DocParserException::clone() const {
    return new DocParserException(*this);
}

void DocParserException::rethrow() const {
    throw DocParserException(*this);
}

} // namespace reference::docparser
