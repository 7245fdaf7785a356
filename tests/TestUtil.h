// Shared helpers of the test suite.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

#include "orvexxml/frame/OrvexException.h"

namespace OrvexTest {

// Runs fn and expects it to throw exactly class E (not a subclass or a base) with
// the given message of its outermost level.
template <typename E, typename Fn>
::testing::AssertionResult ThrowsExactly(Fn&& fn, const std::string& message)
{
    try {
        fn();
    } catch (const OrvexXmlLib5::COrvexException& e) {
        if (typeid(e) != typeid(E))
            return ::testing::AssertionFailure()
                   << "threw " << typeid(e).name() << " instead of " << typeid(E).name() << ": " << e.GetMessage();
        if (e.GetMessage() != message)
            return ::testing::AssertionFailure() << "message [" << e.GetMessage() << "] instead of [" << message << "]";
        return ::testing::AssertionSuccess();
    } catch (const std::exception& e) {
        return ::testing::AssertionFailure() << "threw a foreign exception: " << e.what();
    } catch (...) {
        return ::testing::AssertionFailure() << "threw something that is not an exception";
    }
    return ::testing::AssertionFailure() << "did not throw";
}

// text with the first occurrence of from replaced by to; a from that is not there
// fails the test.
inline std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t at = text.find(from);
    if (at == std::string::npos)
        ADD_FAILURE() << "not in the text: " << from;
    else
        text.replace(at, from.size(), to);
    return text;
}

// Path of a scratch file in the build tree's test folder.
inline std::string TempPath(const std::string& name)
{
    return std::string(ORVEX_TEST_TMPDIR) + "/" + name;
}

}  // namespace OrvexTest

#define EXPECT_THROW_MSG(stmt, E, msg) EXPECT_TRUE(::OrvexTest::ThrowsExactly<E>([&]() { stmt; }, msg))
