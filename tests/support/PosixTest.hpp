#pragma once

#include <gtest/gtest.h>

/// A TEST_F of what only POSIX has: links that anyone may make, names of any bytes, names that
/// differ in case alone. Windows compiles it and does not run it; docs/windows.md has the list.
#ifdef _WIN32
#define POSIX_TEST_F(fixture, name)                                                                \
    class fixture##_##name : public fixture {                                                      \
        [[maybe_unused]] void TestBody() override;                                                 \
    };                                                                                             \
    void fixture##_##name::TestBody()
#else
#define POSIX_TEST_F(fixture, name) TEST_F(fixture, name)
#endif
