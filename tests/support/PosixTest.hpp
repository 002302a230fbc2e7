#pragma once

#include <gtest/gtest.h>

/// A TEST_F that needs POSIX, for example for symbolic links without privileges, names of arbitrary
/// bytes or names that differ only in case. Windows compiles but does not run it; docs/windows.md
/// lists these tests.
#ifdef _WIN32
#define POSIX_TEST_F(fixture, name)                                                                \
    class fixture##_##name : public fixture {                                                      \
        [[maybe_unused]] void TestBody() override;                                                 \
    };                                                                                             \
    void fixture##_##name::TestBody()
#else
#define POSIX_TEST_F(fixture, name) TEST_F(fixture, name)
#endif
