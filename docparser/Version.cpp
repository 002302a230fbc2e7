#include "docparser/Version.hpp"

namespace reference::docparser {

Version version() noexcept {
    return {DOCPARSER_VERSION_MAJOR, DOCPARSER_VERSION_MINOR, DOCPARSER_VERSION_PATCH};
}

} // namespace reference::docparser
