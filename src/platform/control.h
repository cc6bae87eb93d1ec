#pragma once

#include "platform/member.h"

#include <memory>
#include <string_view>

namespace servopanel::platform {

// One child control of a form, late bound. Implemented by hosts, called by the library. Every call may raise
// basic::Error: an unknown member or a member used the wrong way is 438, a value that does not convert 13.
//
// Setting a property from here never raises an event of the control, and 32-bit colours are 0xBBGGRR.
class Control : public basic::Object {
public:
    virtual basic::Variant get(const Member& member, Args args) = 0;
    virtual void put(const Member& member, Args args, const basic::Variant& value) = 0;
    // Sets an object property to the object itself, as with the target of the input mask.
    virtual void putRef(const Member& member, Args args, const basic::Variant& object) = 0;
    virtual basic::Variant call(const Member& member, Args args) = 0;
    // Bare class name, such as "VWSIndex".
    virtual std::string_view className() const = 0;

    basic::Variant get(const Member& member) { return get(member, {}); }
    void put(const Member& member, const basic::Variant& value) { put(member, {}, value); }
};

using ControlRef = std::shared_ptr<Control>;

} // namespace servopanel::platform
