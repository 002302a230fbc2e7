// The guarantees of the record types. The tests of the readers check the key of each field.

#include "tests/support/Records.hpp"

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/parsing/RefItemLookup.hpp"

#include <gtest/gtest.h>

#include <concepts>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace docparser_tests {
namespace {

using namespace reference::property;
using reference::docparser::DocResource;

// Records can be copied, moved without copying and compared, but not default-constructed.
template <class Record>
constexpr bool isValue =
    std::copyable<Record>&& std::equality_comparable<Record>&&
        std::is_nothrow_move_constructible_v<Record>&& std::is_nothrow_move_assignable_v<Record> &&
    !std::is_default_constructible_v<Record> && !std::is_polymorphic_v<Record>;

static_assert(isValue<RefEntity> && isValue<AppThumbnail> && isValue<SyntaxGroup>);
static_assert(isValue<ObjectInfo> && isValue<Input> && isValue<InputGroup> && isValue<Output>);
static_assert(isValue<Parameter> && isValue<ClassProperty> && isValue<ClassPropertyGroup>);
static_assert(isValue<SeeAlso> && isValue<Example> && isValue<HeaderInfo>);
static_assert(isValue<RefItem> && isValue<RefItemLookup>);
static_assert(std::copyable<DocResource<RefItem>> && std::copyable<DocResource<RefItemLookup>>);

// A string too long for small-string storage, so that a move differs from a copy.
std::u16string longString() {
    return std::u16string(100, u'x');
}

TEST(Records, TakeStringsWithoutCopyingThem) {
    std::u16string name = longString();
    const char16_t* const characters = name.data();
    ObjectInfo info(std::move(name), u"", {}, u"");
    EXPECT_EQ(info.getName().data(), characters);

    Input input(std::move(info), SyntaxType::Function, u"", /*isNameValuePair=*/false);
    EXPECT_EQ(input.getObjectInfo().getName().data(), characters);
}

TEST(Records, TakeListsWithoutCopyingThem) {
    std::vector<SeeAlso> seeAlso{SeeAlso(longString(), u"")};
    const SeeAlso* const links = seeAlso.data();
    const RefItem item = makeRefItem({.seeAlso = std::move(seeAlso)});
    EXPECT_EQ(item.getSeeAlso().data(), links);
}

} // namespace
} // namespace docparser_tests
