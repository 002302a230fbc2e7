#include "platform/package/ContentSource.hpp"

namespace opc {

ContentSource::~ContentSource() = default;

} // namespace opc
