#pragma once

#include "docparser/parsing/ItemParts.hpp"

#include <string>
#include <utility>
#include <vector>

namespace reference::property {

/// One documented item of a product: a page of its reference.
///
/// The vectors keep file order and are empty where the file has nothing; absent texts are empty.
class RefItem {
public:
    /// Takes every field, in file order.
    RefItem(std::u16string href, std::vector<RefEntity> refEntities, std::u16string packageName,
            std::u16string refPurpose, std::u16string introduced, std::u16string description,
            AppThumbnail appThumbnail, DeprecationStatus::Value deprecationStatus,
            std::vector<SyntaxGroup> syntaxGroups, std::vector<Input> inputs,
            std::vector<InputGroup> inputGroups, std::vector<Output> outputs,
            std::vector<ClassPropertyGroup> classPropertyGroups, std::vector<SeeAlso> seeAlso,
            std::vector<Example> examples, std::vector<Parameter> parameters)
        : href_(std::move(href)),
          refEntities_(std::move(refEntities)),
          packageName_(std::move(packageName)),
          refPurpose_(std::move(refPurpose)),
          introduced_(std::move(introduced)),
          description_(std::move(description)),
          appThumbnail_(std::move(appThumbnail)),
          deprecationStatus_(deprecationStatus),
          syntaxGroups_(std::move(syntaxGroups)),
          inputs_(std::move(inputs)),
          inputGroups_(std::move(inputGroups)),
          outputs_(std::move(outputs)),
          classPropertyGroups_(std::move(classPropertyGroups)),
          seeAlso_(std::move(seeAlso)),
          examples_(std::move(examples)),
          parameters_(std::move(parameters)) {}

    /// Link to the item's page; also its key in a section's items.
    const std::u16string& getHref() const noexcept { return href_; }
    /// What the page documents: usually one thing, several when it serves them all.
    const std::vector<RefEntity>& getRefEntities() const noexcept { return refEntities_; }
    /// The package that the item belongs to.
    const std::u16string& getPackageName() const noexcept { return packageName_; }
    /// One line on what the item is for.
    const std::u16string& getRefPurpose() const noexcept { return refPurpose_; }
    /// The release that introduced the item.
    const std::u16string& getIntroduced() const noexcept { return introduced_; }
    /// Longer text on the item, for people.
    const std::u16string& getDescription() const noexcept { return description_; }
    /// The picture of an app; its texts are empty when the item has none.
    const AppThumbnail& getAppThumbnail() const noexcept { return appThumbnail_; }
    /// How far the item is on its way out; DeprecationStatus::None when the file does not tell.
    DeprecationStatus::Value getDeprecationStatus() const noexcept { return deprecationStatus_; }
    /// The ways to call the item, group by group.
    const std::vector<SyntaxGroup>& getSyntaxGroups() const noexcept { return syntaxGroups_; }
    /// Inputs outside any group; name-value pairs stand among them where the file lists them.
    const std::vector<Input>& getInputs() const noexcept { return inputs_; }
    /// Inputs that the file lists under a title; they are not among getInputs() too.
    const std::vector<InputGroup>& getInputGroups() const noexcept { return inputGroups_; }
    /// What a call returns.
    const std::vector<Output>& getOutputs() const noexcept { return outputs_; }
    /// The properties of a class, group by group.
    const std::vector<ClassPropertyGroup>& getClassPropertyGroups() const noexcept {
        return classPropertyGroups_;
    }
    /// Links to related pages.
    const std::vector<SeeAlso>& getSeeAlso() const noexcept { return seeAlso_; }
    /// Examples of the item's use.
    const std::vector<Example>& getExamples() const noexcept { return examples_; }
    /// What the file lists under "parameters", each with its default.
    const std::vector<Parameter>& getParameters() const noexcept { return parameters_; }

    bool operator==(const RefItem&) const = default;

private:
    std::u16string href_;
    std::vector<RefEntity> refEntities_;
    std::u16string packageName_;
    std::u16string refPurpose_;
    std::u16string introduced_;
    std::u16string description_;
    AppThumbnail appThumbnail_;
    DeprecationStatus::Value deprecationStatus_;
    std::vector<SyntaxGroup> syntaxGroups_;
    std::vector<Input> inputs_;
    std::vector<InputGroup> inputGroups_;
    std::vector<Output> outputs_;
    std::vector<ClassPropertyGroup> classPropertyGroups_;
    std::vector<SeeAlso> seeAlso_;
    std::vector<Example> examples_;
    std::vector<Parameter> parameters_;
};

} // namespace reference::property
