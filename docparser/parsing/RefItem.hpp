#pragma once

#include "docparser/parsing/ItemParts.hpp"

#include <string>
#include <utility>
#include <vector>

namespace reference::property {

/// One documented item of a product: a page of its reference.
///
/// The vectors are in file order. A string or vector is empty if the file has no such key.
class RefItem {
public:
    /// Takes every field in the order of the accessors.
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

    /// Link to the item's page; also the item's key in DocResource::items.
    const std::u16string& getHref() const noexcept { return href_; }
    /// The entities that the page documents, usually one.
    const std::vector<RefEntity>& getRefEntities() const noexcept { return refEntities_; }
    /// The package that the item belongs to.
    const std::u16string& getPackageName() const noexcept { return packageName_; }
    /// The item's purpose in one line.
    const std::u16string& getRefPurpose() const noexcept { return refPurpose_; }
    /// The release that introduced the item.
    const std::u16string& getIntroduced() const noexcept { return introduced_; }
    /// The item's description; usually longer than its purpose.
    const std::u16string& getDescription() const noexcept { return description_; }
    /// The picture of an app; its strings are empty if the item has none.
    const AppThumbnail& getAppThumbnail() const noexcept { return appThumbnail_; }
    /// DeprecationStatus::None if the file has no status or an unknown one.
    DeprecationStatus::Value getDeprecationStatus() const noexcept { return deprecationStatus_; }
    /// The calling forms, by group.
    const std::vector<SyntaxGroup>& getSyntaxGroups() const noexcept { return syntaxGroups_; }
    /// The inputs that are not in a group. Name-value pairs are at their position in the file.
    const std::vector<Input>& getInputs() const noexcept { return inputs_; }
    /// The inputs that are in a titled group; getInputs() does not contain them.
    const std::vector<InputGroup>& getInputGroups() const noexcept { return inputGroups_; }
    /// The results of a call.
    const std::vector<Output>& getOutputs() const noexcept { return outputs_; }
    /// The properties of a class, by group.
    const std::vector<ClassPropertyGroup>& getClassPropertyGroups() const noexcept {
        return classPropertyGroups_;
    }
    /// Links to related pages.
    const std::vector<SeeAlso>& getSeeAlso() const noexcept { return seeAlso_; }
    /// Examples of how to use the item.
    const std::vector<Example>& getExamples() const noexcept { return examples_; }
    /// The parameters, each with its default.
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
