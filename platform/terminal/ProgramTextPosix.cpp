#include "platform/terminal/ProgramText.hpp"

#include <cstdlib>

namespace platform {

std::vector<std::string> argumentsInUtf8(int argumentCount, char* arguments[]) {
    return {arguments + (argumentCount > 0 ? 1 : 0), arguments + argumentCount};
}

std::optional<std::string> environmentVariable(const std::string& name) {
    const char* const value = std::getenv(name.c_str());
    return value ? std::optional<std::string>(value) : std::nullopt;
}

Utf8Output::Utf8Output() noexcept = default;

Utf8Output::~Utf8Output() = default;

} // namespace platform
