#pragma once

#include "tools/refdoc/index/IndexTable.hpp"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace refdoc::site {

/// The files of an index by their names.
using Files = std::map<std::string, std::string>;

/// Collects files from any thread. Each must be new and small enough.
inline AddFile addTo(Files& files) {
    return [&files, mutex = std::make_shared<std::mutex>()](const std::string& name,
                                                            std::string_view content) {
        const std::lock_guard lock(*mutex);
        EXPECT_TRUE(files.emplace(name, content).second) << name;
        EXPECT_LE(content.size(), kLargestPart) << name;
    };
}

} // namespace refdoc::site
