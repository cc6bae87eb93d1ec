#pragma once

#include <memory>

namespace servopanel::basic {

// An opaque thing of the host (a control, a picture) that the library passes on without looking inside. Only hosts
// make them. The empty reference is a value too: "no object", "no picture".
class Object {
public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;
};

using ObjectRef = std::shared_ptr<Object>;

} // namespace servopanel::basic
