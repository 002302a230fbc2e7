#include "docparser/DocParserException.hpp"

#include "tests/system/SystemTest.hpp"

#include <boost/exception/all.hpp>

#include <memory>
#include <string>
#include <type_traits>

namespace docparser_tests {
namespace {

using foundation::core::except::IException;
using foundation::core::except::IInternalException;
using reference::docparser::DocParserException;

using Note = boost::error_info<struct NoteTag, std::string>;

constexpr const char* kWhat = "resource::docparser::DocParserException";

class DocParserExceptionTest : public SystemTest {};

// Returns true if a handler of type T catches the exception of getResourceFile() with its product.
template <class T>
bool isCaughtAs() {
    try {
        DocResourceParser::getResourceFile(u"Absent");
    } catch (const T& caught) {
        const auto* exception = dynamic_cast<const DocParserException*>(&caught);
        return exception && exception->getProductName() == u"Absent";
    }
    return false;
}

TEST_F(DocParserExceptionTest, IsCaughtAsEachOfItsFiveTypes) {
    EXPECT_TRUE(isCaughtAs<DocParserException>());
    EXPECT_TRUE(isCaughtAs<IInternalException>());
    EXPECT_TRUE(isCaughtAs<IException>());
    EXPECT_TRUE(isCaughtAs<boost::exception>());
    EXPECT_TRUE(isCaughtAs<boost::exception_detail::clone_base>());
}

TEST_F(DocParserExceptionTest, IsNotStandardException) {
    static_assert(!std::is_base_of_v<std::exception, DocParserException>);
    try {
        DocResourceParser::getResourceFile(u"Absent");
        FAIL() << "nothing was thrown";
    } catch (const std::exception&) {
        FAIL() << "a std::exception was thrown";
    } catch (const IInternalException& exception) {
        EXPECT_STREQ(exception.what(), kWhat);
    }
}

TEST_F(DocParserExceptionTest, WhatIsTheSameForEveryProduct) {
    for (const std::u16string product : {u"", u"Orchard", u"resource"})
        EXPECT_STREQ(DocParserException(product).what(), kWhat);
}

TEST_F(DocParserExceptionTest, KeepsEveryCodeUnitOfTheName) {
    const std::u16string name = std::u16string(u"a\0b", 3) + char16_t(0xD800) + u"\n";
    EXPECT_EQ(DocParserException(name).getProductName(), name);
}

TEST_F(DocParserExceptionTest, IsRethrownFromCurrentException) {
    boost::exception_ptr kept;
    try {
        DocResourceParser::getResourceFile(u"Absent");
    } catch (const boost::exception&) {
        kept = boost::current_exception();
    }
    ASSERT_TRUE(kept);
    try {
        boost::rethrow_exception(kept);
        FAIL() << "nothing was thrown";
    } catch (const DocParserException& exception) {
        EXPECT_EQ(exception.getProductName(), u"Absent");
        EXPECT_STREQ(exception.what(), kWhat);
    }
}

TEST_F(DocParserExceptionTest, IsRethrownFromCopiedException) {
    const boost::exception_ptr kept = boost::copy_exception(DocParserException(u"Absent"));
    try {
        boost::rethrow_exception(kept);
        FAIL() << "nothing was thrown";
    } catch (const DocParserException& exception) {
        EXPECT_EQ(exception.getProductName(), u"Absent");
    }
}

TEST_F(DocParserExceptionTest, CloneIsIndependent) {
    auto original = std::make_unique<DocParserException>(u"Absent");
    *original << Note("why");
    const std::unique_ptr<const boost::exception_detail::clone_base> clone(original->clone());
    original.reset();

    const auto* copy = dynamic_cast<const DocParserException*>(clone.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(typeid(*copy), typeid(DocParserException));
    EXPECT_EQ(copy->getProductName(), u"Absent");
    ASSERT_NE(boost::get_error_info<Note>(*copy), nullptr);
    EXPECT_EQ(*boost::get_error_info<Note>(*copy), "why");
}

TEST_F(DocParserExceptionTest, RethrowsACopyWithItsErrorInformation) {
    DocParserException original(u"Absent");
    original << Note("why");
    const boost::exception_detail::clone_base& base = original;
    try {
        base.rethrow();
        FAIL() << "nothing was thrown";
    } catch (const DocParserException& exception) {
        EXPECT_NE(&exception, &original);
        EXPECT_EQ(exception.getProductName(), u"Absent");
        ASSERT_NE(boost::get_error_info<Note>(exception), nullptr);
        EXPECT_EQ(*boost::get_error_info<Note>(exception), "why");
    }
}

TEST_F(DocParserExceptionTest, CopiesShareTheErrorInformation) {
    DocParserException original(u"Absent");
    original << Note("why");
    const DocParserException copy(original);
    DocParserException assigned(u"Other");
    assigned = original;

    const std::string* note = boost::get_error_info<Note>(original);
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(boost::get_error_info<Note>(copy), note);
    EXPECT_EQ(boost::get_error_info<Note>(assigned), note);
    EXPECT_EQ(assigned.getProductName(), u"Absent");
}

TEST_F(DocParserExceptionTest, IsMovedWithItsNameAndErrorInformation) {
    DocParserException original(u"A product name that is longer than a short string holds");
    original << Note("why");
    const char16_t* characters = original.getProductName().data();
    const DocParserException moved(std::move(original));

    EXPECT_EQ(moved.getProductName().data(), characters);
    ASSERT_NE(boost::get_error_info<Note>(moved), nullptr);
    EXPECT_EQ(*boost::get_error_info<Note>(moved), "why");
}

TEST_F(DocParserExceptionTest, StartsWithoutErrorInformation) {
    try {
        DocResourceParser::getResourceFile(u"Absent");
        FAIL() << "nothing was thrown";
    } catch (const DocParserException& exception) {
        EXPECT_EQ(boost::get_error_info<boost::throw_file>(exception), nullptr);
        EXPECT_EQ(boost::get_error_info<Note>(exception), nullptr);
    }
}

} // namespace
} // namespace docparser_tests
