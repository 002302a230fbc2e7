#pragma once

#include <boost/json/fwd.hpp>

#include <exception>
#include <string>

namespace reference::docparser {

/// A parsed document that breaks the resource format: a required key that is missing, or a value
/// of the wrong kind. Whoever reads the file drops it.
///
/// The thrower only remembers where it stood; the JSON pointer is found afterwards, by whoever
/// holds the document, so that reading a good file costs nothing for it.
class FormatError : public std::exception {
public:
    /// \param place   the JSON value or object at fault; only its address is used
    /// \param reason  what is wrong there, for people
    FormatError(const void* place, std::string reason);

    /// Finds the place in the document and puts its JSON pointer in front of the message. Call it
    /// while the document is alive. Cost: one walk over the document.
    void locate(const boost::json::value& document);

    /// The JSON pointer (RFC 6901) of the place, "" for the document itself; empty as well before
    /// locate().
    const std::string& getPointer() const noexcept { return pointer_; }
    const std::string& getReason() const noexcept { return reason_; }

    /// The pointer, ": " and the reason; the reason alone before locate().
    const char* what() const noexcept override { return message_.c_str(); }

private:
    const void* place_;
    std::string pointer_;
    std::string reason_;
    std::string message_;
};

} // namespace reference::docparser
