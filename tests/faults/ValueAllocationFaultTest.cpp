#include "docparser/DocParserException.hpp"
#include "tests/faults/FaultTest.hpp"

#include <boost/exception_ptr.hpp>
#include <boost/json/parse.hpp>

#include <exception>
#include <memory>

namespace docparser_tests {
namespace {

using reference::docparser::DocParserException;
using Tools = DocResourceParser::ParsingTools;

const std::u16string kLongName = u"A product with a long name";

class ValueAllocationFaultTest : public FaultTest {
protected:
    // An operation that returns its result or throws std::bad_alloc.
    template <class Result>
    Operation<Result> making(std::function<Result()> act) const {
        const Result expected = act();
        return operation<Result>(act, [expected](const Outcome<Result>& outcome) {
            if (outcome.ending != Ending::BadAlloc) {
                EXPECT_EQ(outcome.result, expected);
            }
        });
    }
};

TEST_F(ValueAllocationFaultTest, ClonedExceptionIsCompleteOrBadAlloc) {
    const DocParserException original(kLongName);
    const auto cloning = making<std::u16string>([&] {
        const std::unique_ptr<const boost::exception_detail::clone_base> copy(original.clone());
        return dynamic_cast<const DocParserException&>(*copy).getProductName();
    });
    EXPECT_GT(failEachAllocation(cloning), 2U);
}

TEST_F(ValueAllocationFaultTest, RethrownExceptionIsCompleteOrBadAlloc) {
    const DocParserException original(kLongName);
    const auto rethrowing = making<std::u16string>([&] {
        std::u16string name;
        try {
            original.rethrow();
        } catch (const boost::exception& exception) {
            name = dynamic_cast<const DocParserException&>(exception).getProductName();
        }
        return name;
    });
    EXPECT_GT(failEachAllocation(rethrowing), 2U);
}

TEST_F(ValueAllocationFaultTest, BoostExceptionPtrHoldsTheExceptionOrBadAlloc) {
    const auto travelling = making<std::u16string>([]() -> std::u16string {
        boost::exception_ptr pointer;
        try {
            throw DocParserException(kLongName);
        } catch (...) {
            pointer = boost::current_exception();
        }
        try {
            boost::rethrow_exception(pointer);
        } catch (const DocParserException& exception) {
            return exception.getProductName();
        }
    });
    EXPECT_GT(failEachAllocation(travelling), 4U);
}

TEST_F(ValueAllocationFaultTest, StdExceptionPtrHoldsTheExceptionOrBadAlloc) {
    const auto travelling = making<std::u16string>([]() -> std::u16string {
        std::exception_ptr pointer;
        try {
            throw DocParserException(kLongName);
        } catch (...) {
            pointer = std::current_exception();
        }
        try {
            std::rethrow_exception(pointer);
        } catch (const DocParserException& exception) {
            return exception.getProductName();
        }
    });
    EXPECT_GT(failEachAllocation(travelling), 2U);
}

TEST_F(ValueAllocationFaultTest, ParsingToolsReturnCorrectResultsOrThrowBadAlloc) {
    const boost::json::value document = boost::json::parse(
        R"({"name": "枝條 and a long rest of the text", "list": ["one", "two"],
            "productName": "product name", "baseCode": "base code of it",
            "helpFolder": "help folder", "helpLocation": "help location"})");
    const auto asking = making<Listing>([&] {
        using enum reference::docparser::StringParsingType;
        const boost::json::object& object = document.as_object();
        Listing texts = Tools::getSupportedDocLocales();
        texts.push_back(Tools::getCurrentLocale());
        texts.push_back(Tools::getFluString(object, "name", Utf8));
        texts.push_back(Tools::getFluString(object.at("baseCode"), Ascii));
        texts.push_back(Tools::getFluStringWithFallback(object, "no such key at all", Ascii));
        texts.push_back(Tools::getHeaderInfo(document, kLongName).getHelpLocation());
        texts.resize(texts.size() + Tools::getJsonArray(document, "list").size());
        return texts;
    });
    EXPECT_GT(failEachAllocation(asking), kReachesLibraries ? 20U : 15U);
}

TEST_F(ValueAllocationFaultTest, RefusedValueThrowsItsErrorOrBadAlloc) {
    const boost::json::value number(7);
    const auto refusing = making<bool>([&] {
        try {
            Tools::getFluString(number, Tools::StringParsingType::Utf8);
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception&) {
            return true;
        }
        return false;
    });
    EXPECT_GT(failEachAllocation(refusing), 2U);
}

} // namespace
} // namespace docparser_tests
