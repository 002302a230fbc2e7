#pragma once

#include "tools/refdoc/index/IndexTable.hpp"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace refdoc::site {

/// The files of an index by their names.
using Files = std::map<std::string, std::string>;

/// Collects files, each of which must be new and small enough.
inline AddFile addTo(Files& files) {
    return [&files](const std::string& name, std::string_view content) {
        EXPECT_TRUE(files.emplace(name, content).second) << name;
        EXPECT_LE(content.size(), kLargestPart) << name;
    };
}

} // namespace refdoc::site
