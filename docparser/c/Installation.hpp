#pragma once

#include "platform/HostServices.hpp"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace reference::docparser::c {

/// The installation that the settings of the process come from. Every function may be called from
/// any thread; a function that throws has changed nothing.
class Installation {
public:
    /// Returns the only object. Initially, its services are those of the process.
    static Installation& instance();

    /// Selects an installation and its settings.
    /// \param folder  absent for the default
    /// \throws std::runtime_error  its manifest is malformed or cannot be read
    void select(const std::optional<std::u16string>& folder);

    /// Returns the reference root of the installation.
    std::u16string referenceRoot() const;

    /// Sets the languages of the process. What is absent comes from the installation.
    void setLanguages(std::optional<std::u16string> current,
                      std::optional<std::vector<std::u16string>> supported);

private:
    Installation();

    mutable std::mutex mutex_; // guards services_, and orders the changes of the process's services
    std::shared_ptr<const platform::HostServices> services_; // without the languages that were set
};

} // namespace reference::docparser::c
