#pragma once

#include "platform/package/InputStream.hpp"

#include <memory>

namespace opc {

enum class TransformMode { None, Inflate };

class ContentSource {
public:
    virtual ~ContentSource() = default;
    virtual std::unique_ptr<InputStream> openInputStream() = 0;
};

} // namespace opc
