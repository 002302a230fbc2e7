#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/parsing/RefItemLookup.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace docparser_tests {
namespace {

using namespace reference::property;
using reference::docparser::DocResource;
using testing::ElementsAre;

// Records are values: copied whole, moved without a copy, never made empty.
template <class Record>
constexpr bool isValue =
    std::is_copy_constructible_v<Record>&& std::is_copy_assignable_v<Record>&&
        std::is_nothrow_move_constructible_v<Record>&& std::is_nothrow_move_assignable_v<Record> &&
    !std::is_default_constructible_v<Record> && !std::is_polymorphic_v<Record>;

static_assert(isValue<RefEntity> && isValue<AppThumbnail> && isValue<SyntaxGroup>);
static_assert(isValue<ObjectInfo> && isValue<Input> && isValue<InputGroup> && isValue<Output>);
static_assert(isValue<Parameter> && isValue<ClassProperty> && isValue<ClassPropertyGroup>);
static_assert(isValue<SeeAlso> && isValue<Example> && isValue<HeaderInfo>);
static_assert(isValue<RefItem> && isValue<RefItemLookup>);
static_assert(std::is_copy_constructible_v<DocResource<RefItem>>);

// Longer than what a string keeps within itself, so that a move hands over its memory.
const std::u16string kLong(100, u'x');

ObjectInfo info(std::u16string name = u"name") {
    return {std::move(name), u"purpose", {u"on", u"off"}, u"page.html#anchor"};
}

// An expectation for a record and a copy of it: equal, and told apart from another one.
template <class Record>
void expectEqualCopies(const Record& record, const Record& other) {
    const Record copy(record);
    EXPECT_TRUE(copy == record);
    EXPECT_FALSE(record == other);
    Record assigned(other);
    assigned = record;
    EXPECT_TRUE(assigned == record);
}

TEST(Records, RefEntityHasWhatItIsGiven) {
    const RefEntity entity(RefEntityType::Class, u"Tree", FunctionType::Constructor);
    EXPECT_EQ(entity.getEntityType(), RefEntityType::Class);
    EXPECT_EQ(entity.getName(), u"Tree");
    EXPECT_EQ(entity.getFunctionType(), FunctionType::Constructor);
    expectEqualCopies(entity, {RefEntityType::Class, u"Tree", FunctionType::Method});
    expectEqualCopies(entity, {RefEntityType::Class, u"tree", FunctionType::Constructor});
    expectEqualCopies(entity, {RefEntityType::Type, u"Tree", FunctionType::Constructor});
}

TEST(Records, AppThumbnailHasWhatItIsGiven) {
    const AppThumbnail thumbnail(u"tree.png", u"A tree");
    EXPECT_EQ(thumbnail.getFileRef(), u"tree.png");
    EXPECT_EQ(thumbnail.getAlt(), u"A tree");
    expectEqualCopies(thumbnail, {u"A tree", u"tree.png"});
}

TEST(Records, SyntaxGroupHasWhatItIsGiven) {
    const SyntaxGroup group(u"Title", SyntaxType::Command, {u"b", u"a", u"b"});
    EXPECT_EQ(group.getTitle(), u"Title");
    EXPECT_EQ(group.getSyntaxType(), SyntaxType::Command);
    EXPECT_THAT(group.getSyntaxes(), ElementsAre(u"b", u"a", u"b"));
    expectEqualCopies(group, {u"Title", SyntaxType::Command, {u"a", u"b", u"b"}});
}

TEST(Records, ObjectInfoHasWhatItIsGivenItsValuesInOrderAndRepeated) {
    const ObjectInfo object(u"name", u"purpose", {u"on", u"off", u"on"}, u"page.html#a");
    EXPECT_EQ(object.getName(), u"name");
    EXPECT_EQ(object.getPurpose(), u"purpose");
    EXPECT_THAT(object.getValues(), ElementsAre(u"on", u"off", u"on"));
    EXPECT_EQ(object.getHref(), u"page.html#a");
    expectEqualCopies(object, {u"name", u"purpose", {u"on", u"off"}, u"page.html#a"});
}

TEST(Records, InputHasWhatItIsGiven) {
    const Input input(info(), SyntaxType::Operator, u"3", true);
    EXPECT_EQ(input.getObjectInfo(), info());
    EXPECT_EQ(input.getSyntaxType(), SyntaxType::Operator);
    EXPECT_EQ(input.getDefaultValue(), u"3");
    EXPECT_TRUE(input.getIsNameValuePair());
    EXPECT_FALSE(Input(info(), SyntaxType::Operator, u"3", false).getIsNameValuePair());
    expectEqualCopies(input, {info(), SyntaxType::Operator, u"3", false});
}

TEST(Records, InputGroupHasWhatItIsGiven) {
    const Input input(info(), SyntaxType::Function, u"", false);
    const InputGroup group(u"Title", {input, input});
    EXPECT_EQ(group.getTitle(), u"Title");
    EXPECT_THAT(group.getInputs(), ElementsAre(input, input));
    expectEqualCopies(group, {u"Title", {input}});
}

TEST(Records, OutputHasWhatItIsGiven) {
    const Output output(info(), SyntaxType::Constructor);
    EXPECT_EQ(output.getObjectInfo(), info());
    EXPECT_EQ(output.getSyntaxType(), SyntaxType::Constructor);
    expectEqualCopies(output, {info(u"other"), SyntaxType::Constructor});
}

TEST(Records, ParameterHasWhatItIsGiven) {
    const Parameter parameter(info(), u"3");
    EXPECT_EQ(parameter.getObjectInfo(), info());
    EXPECT_EQ(parameter.getDefaultValue(), u"3");
    expectEqualCopies(parameter, {info(), u""});
}

TEST(Records, ClassPropertyAndItsGroupHaveWhatTheyAreGiven) {
    const ClassProperty property(info(), u"3");
    EXPECT_EQ(property.getObjectInfo(), info());
    EXPECT_EQ(property.getDefaultValue(), u"3");
    expectEqualCopies(property, {info(), u"4"});

    const ClassPropertyGroup group(u"Title", {property});
    EXPECT_EQ(group.getTitle(), u"Title");
    EXPECT_THAT(group.getProperties(), ElementsAre(property));
    expectEqualCopies(group, {u"", {property}});
}

TEST(Records, SeeAlsoAndExampleHaveWhatTheyAreGiven) {
    const SeeAlso link(u"prune.html", u"prune");
    EXPECT_EQ(link.getUrl(), u"prune.html");
    EXPECT_EQ(link.getName(), u"prune");
    expectEqualCopies(link, {u"prune", u"prune.html"});

    const Example example(u"example.html", u"open example", u"An example");
    EXPECT_EQ(example.getUrl(), u"example.html");
    EXPECT_EQ(example.getOpenCommand(), u"open example");
    EXPECT_EQ(example.getTitle(), u"An example");
    expectEqualCopies(example, {u"example.html", u"An example", u"open example"});
}

TEST(Records, HeaderInfoHasWhatItIsGivenAndIsMoveAssigned) {
    HeaderInfo header(u"schema", u"1", u"name", u"code", kLong, u"location", u"product");
    EXPECT_EQ(header.getSchema(), u"schema");
    EXPECT_EQ(header.getSchemaVersion(), u"1");
    EXPECT_EQ(header.getProductName(), u"name");
    EXPECT_EQ(header.getBaseCode(), u"code");
    EXPECT_EQ(header.getHelpFolder(), kLong);
    EXPECT_EQ(header.getHelpLocation(), u"location");
    EXPECT_EQ(header.getProduct(), u"product");
    const HeaderInfo other(u"", u"", u"", u"", u"", u"", u"");
    expectEqualCopies(header, other);

    const HeaderInfo copy(header);
    const char16_t* const characters = header.getHelpFolder().data();
    HeaderInfo target(other);
    target = std::move(header);
    EXPECT_EQ(target, copy);
    EXPECT_EQ(target.getHelpFolder().data(), characters);
}

TEST(Records, RefItemLookupHasWhatItIsGiven) {
    const RefItemLookup item(u"graft", RefEntityType::Method, u"Join trees", true, u"graft.html",
                             FunctionType::Static);
    EXPECT_EQ(item.getName(), u"graft");
    EXPECT_EQ(item.getEntityType(), RefEntityType::Method);
    EXPECT_EQ(item.getRefPurpose(), u"Join trees");
    EXPECT_TRUE(item.getDeprecated());
    EXPECT_EQ(item.getHref(), u"graft.html");
    EXPECT_EQ(item.getFunctionType(), FunctionType::Static);
    expectEqualCopies(item, {u"graft", RefEntityType::Method, u"Join trees", false, u"graft.html",
                             FunctionType::Static});
}

RefItem makeItem(std::u16string href, std::vector<SeeAlso> seeAlso) {
    return {std::move(href),
            {RefEntity(RefEntityType::Class, u"Tree", FunctionType::Method)},
            u"package",
            u"purpose",
            u"R1",
            u"description",
            AppThumbnail(u"tree.png", u"A tree"),
            DeprecationStatus::Discouraged,
            {SyntaxGroup(u"syntaxes", SyntaxType::Command, {u"graft a b"})},
            {Input(info(u"input"), SyntaxType::Function, u"", false)},
            {InputGroup(u"inputs", {})},
            {Output(info(u"output"), SyntaxType::Function)},
            {ClassPropertyGroup(u"properties", {})},
            std::move(seeAlso),
            {Example(u"example.html", u"open", u"An example")},
            {Parameter(info(u"parameter"), u"3")}};
}

TEST(Records, RefItemHasItsSixteenFieldsInOrder) {
    const RefItem item = makeItem(u"tree.html", {SeeAlso(u"prune.html", u"prune")});
    EXPECT_EQ(item.getHref(), u"tree.html");
    EXPECT_THAT(item.getRefEntities(),
                ElementsAre(RefEntity(RefEntityType::Class, u"Tree", FunctionType::Method)));
    EXPECT_EQ(item.getPackageName(), u"package");
    EXPECT_EQ(item.getRefPurpose(), u"purpose");
    EXPECT_EQ(item.getIntroduced(), u"R1");
    EXPECT_EQ(item.getDescription(), u"description");
    EXPECT_EQ(item.getAppThumbnail(), AppThumbnail(u"tree.png", u"A tree"));
    EXPECT_EQ(item.getDeprecationStatus(), DeprecationStatus::Discouraged);
    EXPECT_THAT(item.getSyntaxGroups(),
                ElementsAre(SyntaxGroup(u"syntaxes", SyntaxType::Command, {u"graft a b"})));
    EXPECT_THAT(item.getInputs(),
                ElementsAre(Input(info(u"input"), SyntaxType::Function, u"", false)));
    EXPECT_THAT(item.getInputGroups(), ElementsAre(InputGroup(u"inputs", {})));
    EXPECT_THAT(item.getOutputs(), ElementsAre(Output(info(u"output"), SyntaxType::Function)));
    EXPECT_THAT(item.getClassPropertyGroups(), ElementsAre(ClassPropertyGroup(u"properties", {})));
    EXPECT_THAT(item.getSeeAlso(), ElementsAre(SeeAlso(u"prune.html", u"prune")));
    EXPECT_THAT(item.getExamples(), ElementsAre(Example(u"example.html", u"open", u"An example")));
    EXPECT_THAT(item.getParameters(), ElementsAre(Parameter(info(u"parameter"), u"3")));
    expectEqualCopies(item, makeItem(u"tree.html", {}));
}

TEST(Records, MovingAnItemHandsItsTextsAndListsOver) {
    std::u16string href = kLong;
    const char16_t* const hrefCharacters = href.data();
    RefItem item = makeItem(std::move(href), {SeeAlso(kLong, kLong)});
    EXPECT_EQ(item.getHref().data(), hrefCharacters);
    const SeeAlso* const links = item.getSeeAlso().data();
    const char16_t* const linkCharacters = links->getUrl().data();

    const RefItem moved(std::move(item));
    EXPECT_EQ(moved.getHref().data(), hrefCharacters);
    EXPECT_EQ(moved.getSeeAlso().data(), links);
    EXPECT_EQ(moved.getSeeAlso().front().getUrl().data(), linkCharacters);
    EXPECT_EQ(moved, makeItem(kLong, {SeeAlso(kLong, kLong)}));

    const RefItem copy(moved);
    EXPECT_NE(copy.getHref().data(), hrefCharacters);
    EXPECT_NE(copy.getSeeAlso().data(), links);
}

TEST(Records, PartsTakeTheTextsThatAreMovedIntoThem) {
    std::u16string text = kLong;
    const char16_t* const characters = text.data();
    ObjectInfo object(std::move(text), u"", {}, u"");
    EXPECT_EQ(object.getName().data(), characters);
    Input input(std::move(object), SyntaxType::Function, u"", false);
    EXPECT_EQ(input.getObjectInfo().getName().data(), characters);
    std::vector<Input> inputs;
    inputs.push_back(std::move(input));
    const InputGroup group(u"", std::move(inputs));
    EXPECT_EQ(group.getInputs().front().getObjectInfo().getName().data(), characters);
}

} // namespace
} // namespace docparser_tests
