#pragma once

#include <string_view>

namespace refdoc::check {

// The files of `schema/` as they were when the tool was built.
extern const std::string_view kResourceSchemaText;
extern const std::string_view kLookupSchemaText;
extern const std::string_view kManifestSchemaText;

} // namespace refdoc::check
