#include "docparser/c/Failures.hpp"

#include "platform/except/IException.hpp"
#include "platform/unicode/Utf8.hpp"

#include <cstddef>
#include <new>
#include <string_view>

namespace reference::docparser::c {

namespace {

constexpr std::string_view kReplacementCharacter = "\uFFFD";

// Not a std::string: a thread must be able to remember that it has run out of memory, and a
// destructor of a thread-local object would have to be registered, which allocates.
constinit thread_local char reason[2048] = {};

// Remembers as much as fits, as well-formed UTF-8.
void remember(std::string_view text) noexcept {
    std::size_t size = 0;
    while (!text.empty()) {
        const platform::DecodedSequence next = platform::decodeUtf8(text);
        const std::string_view character =
            next.isWellFormed ? text.substr(0, next.length) : kReplacementCharacter;
        if (size + character.size() >= sizeof reason)
            break;
        size += character.copy(reason + size, character.size());
        text.remove_prefix(next.length);
    }
    reason[size] = '\0';
}

docparser_status fail(docparser_status status, std::string_view text) noexcept {
    remember(text);
    return status;
}

} // namespace

docparser_status recordEnding(const std::exception_ptr& failure) noexcept {
    if (!failure)
        return fail(DOCPARSER_OK, "");
    try {
        std::rethrow_exception(failure);
    } catch (const InvalidArgument& argument) {
        return fail(DOCPARSER_INVALID_ARGUMENT, argument.what());
    } catch (const NotFound& product) {
        return fail(DOCPARSER_NOT_FOUND, product.what());
    } catch (const std::bad_alloc&) {
        return fail(DOCPARSER_OUT_OF_MEMORY, "out of memory");
    } catch (const std::exception& other) {
        return fail(DOCPARSER_FAILED, other.what());
    } catch (const foundation::core::except::IException& other) {
        return fail(DOCPARSER_FAILED, other.what());
    } catch (...) {
        return fail(DOCPARSER_FAILED, "a service of the host application failed");
    }
}

const char* lastError() noexcept {
    return reason;
}

} // namespace reference::docparser::c
