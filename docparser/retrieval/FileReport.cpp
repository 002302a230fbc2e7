#include "docparser/retrieval/FileReport.hpp"

#include "docparser/parsing/FormatError.hpp"
#include "docparser/parsing/TextPlaces.hpp"
#include "platform/except/IException.hpp"

#include <boost/system/system_error.hpp>

#include <algorithm>
#include <new>
#include <system_error>
#include <utility>

namespace reference::docparser {

FileReport::FileReport(LoadAccount* account, FileRole role, const std::u16string& path,
                       const std::u16string& entry, bool isTranslation)
    : account_(account) {
    if (!account)
        return;
    index_ = account->files.size();
    // Until it is concluded, nothing of the file is used.
    account->files.push_back({.role = role,
                              .path = path,
                              .entry = entry,
                              .isTranslation = isTranslation,
                              .fate = Fate::Failed});
}

void FileReport::keepText(const std::string& text) {
    if (account_)
        text_ = text;
}

SectionList* FileReport::sections() noexcept {
    return account_ ? &file().sections : nullptr;
}

void FileReport::conclude(const std::exception_ptr& failure) {
    if (!account_)
        return;
    for (SectionAccount& section : file().sections) {
        // Full resources are used as they are; an overlay tells what it makes of them.
        if (!failure && file().role == FileRole::Resources && section.fate == SectionFate::Unused)
            section.fate = SectionFate::New;
        if (section.fate == SectionFate::New || section.fate == SectionFate::KeyTaken)
            section.other = index_;
    }
    if (failure)
        fail(failure);
    else if (file().fate == Fate::Failed)
        file().fate = Fate::Used;
}

void FileReport::fail(const std::exception_ptr& failure) {
    FileAccount& account = file();
    account.fate = Fate::Failed;
    // A text that could not be read whole fails in the parser; the cause is the reading.
    if (problem_.fate != Fate::Used) {
        account.fate = problem_.fate;
        account.reason = std::move(problem_.reason);
        return;
    }
    try {
        std::rethrow_exception(failure);
    } catch (const FormatError& error) {
        account.pointer = error.getPointer();
        if (const auto found = findValues(text_, {account.pointer}).front())
            account.place = found->value;
        setMalformed(error.getReason());
    } catch (const boost::system::system_error& error) {
        const auto syntax = findSyntaxProblem(text_);
        account.place = syntax ? syntax->place : TextPlace();
        setMalformed(text_.empty() ? "the file is empty" : error.code().message());
    } catch (const std::system_error& error) {
        // The path can be that of no file.
        account.fate = Fate::Missing;
        account.reason = error.what();
    } catch (const std::bad_alloc&) {
        account.reason = "there is not enough memory";
    } catch (const std::exception& error) {
        account.reason = error.what();
    } catch (const foundation::core::except::IException& error) {
        account.reason = error.what();
    } catch (...) {
        account.reason = "a service of the application failed";
    }
}

void FileReport::setMalformed(std::string reason) {
    FileAccount& account = file();
    account.fate = Fate::Malformed;
    account.reason = std::move(reason);
    account.sections.clear();
}

SectionAccount& sectionAccountOf(FileAccount& file, const std::u16string& key) {
    return *std::ranges::find(file.sections, key, &SectionAccount::key);
}

} // namespace reference::docparser
