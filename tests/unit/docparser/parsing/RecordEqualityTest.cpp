#include "docparser/parsing/HeaderInfo.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/parsing/RefItemLookup.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

using namespace reference::property;

// Each of the others differs from the record in one field, in the order of the fields.
template <class Record>
void expectEachFieldCounts(const Record& record, const std::vector<Record>& others) {
    EXPECT_TRUE(record == Record(record));
    for (std::size_t field = 0; field < others.size(); ++field) {
        EXPECT_FALSE(record == others[field]) << "field " << field;
        EXPECT_FALSE(others[field] == record) << "field " << field;
    }
}

const ObjectInfo kInfo(u"name", u"purpose", {u"on"}, u"page.html");
const ObjectInfo kOtherInfo(u"other", u"purpose", {u"on"}, u"page.html");

TEST(RecordEquality, EachFieldOfAnEntityOrAThumbnailCounts) {
    expectEachFieldCounts<RefEntity>({RefEntityType::Class, u"Tree", FunctionType::Method},
                                     {{RefEntityType::Type, u"Tree", FunctionType::Method},
                                      {RefEntityType::Class, u"tree", FunctionType::Method},
                                      {RefEntityType::Class, u"Tree", FunctionType::Static}});
    expectEachFieldCounts<AppThumbnail>({u"tree.png", u"A tree"},
                                        {{u"bush.png", u"A tree"}, {u"tree.png", u"A bush"}});
}

TEST(RecordEquality, EachFieldOfASyntaxGroupCounts) {
    expectEachFieldCounts<SyntaxGroup>({u"title", SyntaxType::Command, {u"graft a"}},
                                       {{u"", SyntaxType::Command, {u"graft a"}},
                                        {u"title", SyntaxType::Function, {u"graft a"}},
                                        {u"title", SyntaxType::Command, {u"graft b"}}});
}

TEST(RecordEquality, EachFieldOfAnObjectCounts) {
    expectEachFieldCounts<ObjectInfo>(kInfo, {kOtherInfo,
                                              {u"name", u"", {u"on"}, u"page.html"},
                                              {u"name", u"purpose", {u"off"}, u"page.html"},
                                              {u"name", u"purpose", {u"on"}, u"page.html#a"}});
}

TEST(RecordEquality, EachFieldOfAnInputOrItsGroupCounts) {
    const Input input(kInfo, SyntaxType::Command, u"3", false);
    const Input other(kInfo, SyntaxType::Command, u"3", true);
    expectEachFieldCounts<Input>(input, {{kOtherInfo, SyntaxType::Command, u"3", false},
                                         {kInfo, SyntaxType::Function, u"3", false},
                                         {kInfo, SyntaxType::Command, u"4", false},
                                         other});
    expectEachFieldCounts<InputGroup>({u"title", {input}}, {{u"", {input}}, {u"title", {other}}});
}

TEST(RecordEquality, EachFieldOfAnOutputOrAParameterCounts) {
    expectEachFieldCounts<Output>({kInfo, SyntaxType::Command}, {{kOtherInfo, SyntaxType::Command},
                                                                 {kInfo, SyntaxType::Function}});
    expectEachFieldCounts<Parameter>({kInfo, u"3"}, {{kOtherInfo, u"3"}, {kInfo, u"4"}});
}

TEST(RecordEquality, EachFieldOfAClassPropertyOrItsGroupCounts) {
    const ClassProperty property(kInfo, u"3");
    const ClassProperty other(kInfo, u"4");
    expectEachFieldCounts<ClassProperty>(property, {{kOtherInfo, u"3"}, other});
    expectEachFieldCounts<ClassPropertyGroup>({u"title", {property}},
                                              {{u"", {property}}, {u"title", {other}}});
}

TEST(RecordEquality, EachFieldOfALinkOrAnExampleCounts) {
    expectEachFieldCounts<SeeAlso>({u"prune.html", u"prune"},
                                   {{u"graft.html", u"prune"}, {u"prune.html", u"graft"}});
    expectEachFieldCounts<Example>(
        {u"a.html", u"open a", u"A"},
        {{u"b.html", u"open a", u"A"}, {u"a.html", u"open b", u"A"}, {u"a.html", u"open a", u"B"}});
}

TEST(RecordEquality, EachFieldOfAHeaderCounts) {
    const auto make = [](std::size_t other) {
        std::array<std::u16string, 7> texts;
        if (other < texts.size())
            texts[other] = u"other";
        return HeaderInfo(texts[0], texts[1], texts[2], texts[3], texts[4], texts[5], texts[6]);
    };
    std::vector<HeaderInfo> others;
    for (std::size_t field = 0; field < 7; ++field)
        others.push_back(make(field));
    expectEachFieldCounts(make(7), others);
}

TEST(RecordEquality, EachFieldOfALookupCounts) {
    using Entity = RefEntityType;
    using Function = FunctionType;
    expectEachFieldCounts<RefItemLookup>(
        {u"graft", Entity::Method, u"Join", false, u"graft.html", Function::Static},
        {{u"prune", Entity::Method, u"Join", false, u"graft.html", Function::Static},
         {u"graft", Entity::Class, u"Join", false, u"graft.html", Function::Static},
         {u"graft", Entity::Method, u"Cut", false, u"graft.html", Function::Static},
         {u"graft", Entity::Method, u"Join", true, u"graft.html", Function::Static},
         {u"graft", Entity::Method, u"Join", false, u"prune.html", Function::Static},
         {u"graft", Entity::Method, u"Join", false, u"graft.html", Function::Method}});
}

// What an item is made of, to be changed field by field.
struct ItemFields {
    std::u16string href, packageName, refPurpose, introduced, description;
    std::vector<RefEntity> refEntities;
    AppThumbnail appThumbnail{u"", u""};
    DeprecationStatus::Value deprecationStatus = DeprecationStatus::None;
    std::vector<SyntaxGroup> syntaxGroups;
    std::vector<Input> inputs;
    std::vector<InputGroup> inputGroups;
    std::vector<Output> outputs;
    std::vector<ClassPropertyGroup> classPropertyGroups;
    std::vector<SeeAlso> seeAlso;
    std::vector<Example> examples;
    std::vector<Parameter> parameters;

    RefItem item() const {
        return {href,        refEntities,  packageName,         refPurpose,   introduced,
                description, appThumbnail, deprecationStatus,   syntaxGroups, inputs,
                inputGroups, outputs,      classPropertyGroups, seeAlso,      examples,
                parameters};
    }
};

TEST(RecordEquality, EachFieldOfAnItemCounts) {
    const std::vector<std::function<void(ItemFields&)>> changes = {
        [](auto& item) { item.href = u"graft.html"; },
        [](auto& item) {
            item.refEntities = {{RefEntityType::Class, u"Tree", FunctionType::Method}};
        },
        [](auto& item) { item.packageName = u"orchard"; },
        [](auto& item) { item.refPurpose = u"Join trees"; },
        [](auto& item) { item.introduced = u"R1"; },
        [](auto& item) { item.description = u"Long"; },
        [](auto& item) {
            item.appThumbnail = {u"tree.png", u""};
        },
        [](auto& item) { item.deprecationStatus = DeprecationStatus::Removed; },
        [](auto& item) {
            item.syntaxGroups = {{u"", SyntaxType::Command, {}}};
        },
        [](auto& item) {
            item.inputs = {{kInfo, SyntaxType::Command, u"", false}};
        },
        [](auto& item) {
            item.inputGroups = {{u"title", {}}};
        },
        [](auto& item) {
            item.outputs = {{kInfo, SyntaxType::Command}};
        },
        [](auto& item) {
            item.classPropertyGroups = {{u"title", {}}};
        },
        [](auto& item) {
            item.seeAlso = {{u"prune.html", u"prune"}};
        },
        [](auto& item) {
            item.examples = {{u"a.html", u"open a", u"A"}};
        },
        [](auto& item) {
            item.parameters = {{kInfo, u"3"}};
        },
    };
    std::vector<RefItem> others;
    for (const auto& change : changes) {
        ItemFields fields;
        change(fields);
        others.push_back(fields.item());
    }
    expectEachFieldCounts(ItemFields().item(), others);
}

} // namespace
} // namespace docparser_tests
