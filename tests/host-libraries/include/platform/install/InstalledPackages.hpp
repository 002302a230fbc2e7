#pragma once

#include <string>
#include <unordered_set>

namespace install::product_impl::utils {

std::unordered_set<std::u16string> getInstalledHardwareSupportPackages(const std::u16string& root);

} // namespace install::product_impl::utils
