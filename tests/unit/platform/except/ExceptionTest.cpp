#include "platform/except/IException.hpp"

#include <boost/exception/diagnostic_information.hpp>
#include <boost/exception/errinfo_file_name.hpp>
#include <boost/exception/get_error_info.hpp>
#include <boost/exception/info.hpp>
#include <boost/exception_ptr.hpp>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace foundation::core::except {

namespace {

class PruningFailure final : public IInternalException {
public:
    explicit PruningFailure(int branch) : branch_(branch) {}

    int branch() const noexcept { return branch_; }
    const char* what() const noexcept override { return "PruningFailure"; }

private:
    const boost::exception_detail::clone_base* clone() const override {
        return new PruningFailure(*this);
    }
    void rethrow() const override { throw PruningFailure(*this); }

    int branch_;
};

template <class Base>
bool isCaughtAs() {
    try {
        throw PruningFailure(3);
    } catch (const Base& caught) {
        const auto* const failure = dynamic_cast<const PruningFailure*>(&caught);
        return failure != nullptr && failure->branch() == 3;
    }
}

TEST(ExceptionTest, CanBeCaughtAsItselfAndAsEachBase) {
    EXPECT_TRUE(isCaughtAs<PruningFailure>());
    EXPECT_TRUE(isCaughtAs<IInternalException>());
    EXPECT_TRUE(isCaughtAs<IException>());
    EXPECT_TRUE(isCaughtAs<boost::exception>());
    EXPECT_TRUE(isCaughtAs<boost::exception_detail::clone_base>());
}

static_assert(!std::is_base_of_v<std::exception, IException>);
static_assert(std::has_virtual_destructor_v<IException>);
static_assert(std::is_abstract_v<IInternalException>);

TEST(ExceptionTest, ReturnsItsTextThroughItsBase) {
    const PruningFailure failure(1);
    EXPECT_STREQ(static_cast<const IException&>(failure).what(), "PruningFailure");
}

const std::string* fileNameOf(const boost::exception& failure) {
    return boost::get_error_info<boost::errinfo_file_name>(failure);
}

TEST(ExceptionTest, SharesErrorInformationWithCopies) {
    PruningFailure failure(2);
    failure << boost::errinfo_file_name("orchard.json");

    const PruningFailure copied(failure);
    ASSERT_NE(fileNameOf(copied), nullptr);
    EXPECT_EQ(fileNameOf(copied), fileNameOf(failure));
    EXPECT_EQ(*fileNameOf(copied), "orchard.json");

    PruningFailure assigned(4);
    assigned = copied;
    EXPECT_EQ(fileNameOf(assigned), fileNameOf(copied));
    EXPECT_EQ(assigned.branch(), 2);

    const std::string* const information = fileNameOf(failure);
    const PruningFailure moved(std::move(failure));
    EXPECT_EQ(fileNameOf(moved), information);
    PruningFailure moveAssigned(5);
    moveAssigned = std::move(assigned);
    EXPECT_EQ(fileNameOf(moveAssigned), information);
}

TEST(ExceptionTest, KeepsErrorInformationOfADestroyedOriginal) {
    auto failure = std::make_unique<PruningFailure>(2);
    *failure << boost::errinfo_file_name("orchard.json");
    const PruningFailure copied(*failure);
    failure.reset();
    ASSERT_NE(fileNameOf(copied), nullptr);
    EXPECT_EQ(*fileNameOf(copied), "orchard.json");
}

TEST(ExceptionTest, SurvivesAnExceptionPointer) {
    boost::exception_ptr kept;
    try {
        PruningFailure failure(7);
        failure << boost::errinfo_file_name("orchard.json");
        throw failure;
    } catch (const boost::exception&) {
        kept = boost::current_exception();
    }
    try {
        boost::rethrow_exception(kept);
    } catch (const PruningFailure& failure) {
        EXPECT_EQ(failure.branch(), 7);
        ASSERT_NE(fileNameOf(failure), nullptr);
        EXPECT_EQ(*fileNameOf(failure), "orchard.json");
    }
}

} // namespace

} // namespace foundation::core::except
