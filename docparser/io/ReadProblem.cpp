#include "docparser/io/ReadProblem.hpp"

#include "platform/ReadLimits.hpp"
#include "platform/except/IException.hpp"
#include "platform/path/Path.hpp"
#include "platform/system/RegularFile.hpp"

#include <new>
#include <system_error>

namespace reference::docparser {

ReadProblem problemOf(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const std::bad_alloc&) {
        return {Fate::Failed, "there is not enough memory"};
    } catch (const platform::LimitError& error) {
        return {Fate::OverLimit, error.what()};
    } catch (const std::exception& error) {
        return {Fate::Unreadable, error.what()};
    } catch (const foundation::core::except::IException& error) {
        return {Fate::Unreadable, error.what()};
    } catch (...) {
        return {Fate::Unreadable, {}};
    }
}

ReadProblem problemOfOpening(const std::u16string& path, const std::exception_ptr& failure) {
    using platform::FileType;
    try {
        switch (
            platform::fileTypeOf(fl::filesystem::make_native_access_form_with_cleanup_i18n(path))) {
        case FileType::Missing: return {Fate::Missing, {}};
        case FileType::Other: return {Fate::NotRegular, {}};
        case FileType::Regular: break;
        }
    } catch (const std::system_error& error) {
        // The path can be that of no file.
        return {Fate::Missing, error.what()};
    }
    return failure ? problemOf(failure) : ReadProblem{Fate::Unreadable, "it cannot be opened"};
}

} // namespace reference::docparser
