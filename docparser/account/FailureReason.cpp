#include "docparser/account/FailureReason.hpp"

#include "docparser/parsing/FormatError.hpp"
#include "docparser/parsing/TextPlaces.hpp"
#include "platform/ReadLimits.hpp"
#include "platform/except/IException.hpp"
#include "platform/system/NativePath.hpp"

#include <boost/system/system_error.hpp>

#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

namespace reference::docparser {

namespace {

// Returns the type of the file at a path without opening it.
std::filesystem::file_type typeOf(const std::u16string& path) {
    std::error_code error;
    return std::filesystem::status(platform::toNativePath(path), error).type();
}

// Handles the exceptions that mean the same for all failures.
// \param unknown  the fate for exceptions that do not concern the file
FailureReason reasonOfException(const std::exception_ptr& failure, Fate unknown) {
    try {
        std::rethrow_exception(failure);
    } catch (const std::bad_alloc&) {
        return {Fate::Failed, "out of memory"};
    } catch (const platform::LimitError& error) {
        return {Fate::OverLimit, error.what()};
    } catch (const std::exception& error) {
        return {unknown, error.what()};
    } catch (const foundation::core::except::IException& error) {
        return {unknown, error.what()};
    } catch (...) {
        return {unknown, "unknown error"};
    }
}

} // namespace

FailureReason reasonOfOpening(const std::u16string& path, const std::exception_ptr& failure) {
    using std::filesystem::file_type;
    try {
        switch (typeOf(path)) {
        case file_type::none:
        case file_type::not_found: return {Fate::Missing};
        case file_type::regular: break;
        default: return {Fate::NotRegular};
        }
    } catch (const std::system_error& error) {
        // The path cannot name a file.
        return {Fate::Missing, error.what()};
    }
    return failure ? reasonOfReading(failure)
                   : FailureReason{Fate::Unreadable, "the file cannot be opened"};
}

FailureReason reasonOfReading(const std::exception_ptr& failure) {
    return reasonOfException(failure, Fate::Unreadable);
}

FailureReason reasonOfUse(const std::exception_ptr& failure, const std::string& text) {
    try {
        std::rethrow_exception(failure);
    } catch (const FormatError& error) {
        FailureReason reason{Fate::Malformed, error.getReason(), error.getPointer()};
        if (const auto found = findValues(text, {reason.pointer}).front())
            reason.place = found->value;
        return reason;
    } catch (const boost::system::system_error& error) {
        const auto problem = findSyntaxProblem(text);
        return {Fate::Malformed,
                text.empty() ? "the file is empty" : error.code().message(),
                {},
                problem ? problem->place : TextPlace()};
    } catch (...) {
        return reasonOfException(failure, Fate::Failed);
    }
}

void applyReason(FailureReason reason, FileAccount& file) {
    file.fate = reason.fate;
    file.reason = std::move(reason.reason);
    file.pointer = std::move(reason.pointer);
    file.place = reason.place;
    if (file.fate == Fate::Malformed)
        file.sections.clear();
}

} // namespace reference::docparser
