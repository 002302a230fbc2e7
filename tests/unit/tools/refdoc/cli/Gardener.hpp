#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

namespace refdoc_tests {

// The table of another program, with options that only one command has.
inline const refdoc::CommandTable kGardener{
    .program = "gardener",
    .summary = "look after a garden",
    .description = {"One paragraph.", ".starts like a macro and says \\n"},
    .options = {{"--plot", "DIR", refdoc::ValueType::Folder, "The plot"},
                {.name = "--quick", .help = "Do it quickly", .group = "pace"},
                {.name = "--help", .help = "Print the help", .shortName = "-h"}},
    .commands = {{.name = "water",
                  .help = "Water the beds",
                  .description = "In the evening.",
                  .arguments = {{.name = "BED",
                                 .type = refdoc::ValueType::Product,
                                 .isRequired = true,
                                 .help = "The bed"}},
                  .options = {{"--can", "FILE", refdoc::ValueType::Folder, "The can"},
                              {.name = "--gently", .help = "Do it slowly", .group = "pace"},
                              {.name = "--mix",
                               .placeholder = "WHAT",
                               .type = refdoc::ValueType::Name,
                               .help = "Add something to the water",
                               .isValueOptional = true}},
                  .negative = "The bed is flooded.",
                  .examples = {{"gardener water roses", "Roses."}}},
                 {.name = "rest", .help = "Do nothing", .description = "At noon."},
                 {.name = "move",
                  .help = "Move a plant",
                  .arguments = {{.name = "OLD",
                                 .type = refdoc::ValueType::Name,
                                 .isRequired = true,
                                 .help = "From this bed"},
                                {.name = "NEW",
                                 .type = refdoc::ValueType::Name,
                                 .isRequired = true,
                                 .help = "To this bed"}}}},
    .exitStatuses = {{"0", "Done."}, {"1", "The garden says no."}},
    .environment = {},
    .files = {},
    .seeAlso = {"less(1)"}};

} // namespace refdoc_tests
