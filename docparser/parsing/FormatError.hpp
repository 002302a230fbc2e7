#pragma once

#include <boost/json/fwd.hpp>

#include <exception>
#include <string>

namespace reference::docparser {

/// Reports that a parsed document violates the resource format: a required key is missing, or a
/// value has the wrong type.
///
/// The error stores only the address of the value. The owner of the document calls locate() to turn
/// it into a JSON pointer, so that readers need not keep track of their position.
class FormatError : public std::exception {
public:
    /// \param place   the invalid JSON value or object; only its address is used
    /// \param reason  what is wrong with it
    FormatError(const void* place, std::string reason);

    /// Finds the value in the document and adds its JSON pointer to the message. Does nothing if
    /// the value is in another document. Cost: one walk over the document.
    void locate(const boost::json::value& document);

    /// Returns the JSON pointer (RFC 6901) of the value, which is "" for the document itself; also
    /// "" before locate().
    const std::string& getPointer() const noexcept { return pointer_; }
    const std::string& getReason() const noexcept { return reason_; }

    /// Returns the pointer, ": " and the reason; only the reason before locate().
    const char* what() const noexcept override { return message_.c_str(); }

private:
    const void* place_;
    std::string pointer_;
    std::string reason_;
    std::string message_;
};

} // namespace reference::docparser
