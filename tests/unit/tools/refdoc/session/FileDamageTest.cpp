#include "tools/refdoc/session/FileDamage.hpp"

#include <gtest/gtest.h>

namespace refdoc {
namespace {

using reference::docparser::Fate;

TEST(FileDamageTest, FilesAreDamagedOrUnusableByTheirFate) {
    struct Case {
        Fate fate;
        bool isDamaged;
        bool isUnusable;
    };
    for (const Case& each :
         {Case{Fate::Used, false, false}, Case{Fate::Overlay, false, false},
          Case{Fate::Merged, false, false}, Case{Fate::SkippedLanguage, false, false},
          Case{Fate::SkippedName, false, false}, Case{Fate::Missing, false, false},
          Case{Fate::Unreadable, true, true}, Case{Fate::NotRegular, true, true},
          Case{Fate::Malformed, true, true}, Case{Fate::OverLimit, true, true},
          Case{Fate::Failed, false, true}}) {
        EXPECT_EQ(isDamaged({.fate = each.fate}), each.isDamaged) << toWord(each.fate);
        EXPECT_EQ(isUnusable({.fate = each.fate}), each.isUnusable) << toWord(each.fate);
    }
}

} // namespace
} // namespace refdoc
