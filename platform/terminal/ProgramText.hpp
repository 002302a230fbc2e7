#pragma once

#include <optional>
#include <string>
#include <vector>

namespace platform {

/// Returns the arguments of this process in UTF-8, without the name of the program.
/// \param argumentCount  as main() gets it
/// \param arguments      as main() gets them; not used on Windows, where they have lost characters
///                       and the command line of the system is read instead
std::vector<std::string> argumentsInUtf8(int argumentCount, char* arguments[]);

/// Returns an environment variable of this process in UTF-8; empty if it is not set.
/// \param name  ASCII
std::optional<std::string> environmentVariable(const std::string& name);

/// Lets standard output and standard error accept UTF-8 during the object's lifetime.
///
/// Bytes pass as they are, without a carriage return before each line feed. A console of Windows
/// shows UTF-8 and obeys the escape sequences for colours; afterwards its settings are restored.
/// Does nothing on systems that behave like this anyway.
class Utf8Output {
public:
    Utf8Output() noexcept;
    ~Utf8Output();
    Utf8Output(const Utf8Output&) = delete;
    Utf8Output& operator=(const Utf8Output&) = delete;

private:
    // The console's previous settings; 0 if there is no console.
    [[maybe_unused]] unsigned codePage_ = 0;
    [[maybe_unused]] unsigned long outputMode_ = 0;
    [[maybe_unused]] unsigned long errorMode_ = 0;
};

} // namespace platform
