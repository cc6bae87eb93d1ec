#pragma once

#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/text.h"
#include "platform/control.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace servopanel::testing {

// One crossing to a control: the verb, the member, the arguments and, where one is set, the value.
struct Crossing {
    std::string verb;
    platform::Member member;
    std::vector<basic::Variant> args;
    basic::Variant value;
};

// A control that keeps its properties by name and notes what is asked of it.
class FakeControl final : public platform::Control {
public:
    explicit FakeControl(std::string className)
        : className_{std::move(className)}
    {
    }

    using platform::Control::get;
    using platform::Control::put;

    basic::Variant get(const platform::Member& member, platform::Args args) override
    {
        note("get", member, args, {});
        require(member);
        return properties[basic::upperCase(member.name)];
    }
    void put(const platform::Member& member, platform::Args args, const basic::Variant& value) override
    {
        note("put", member, args, value);
        require(member);
        properties[basic::upperCase(member.name)] = value;
        afterPut();
    }
    void putRef(const platform::Member& member, platform::Args args, const basic::Variant& object) override
    {
        note("putRef", member, args, object);
    }
    basic::Variant call(const platform::Member& member, platform::Args args) override
    {
        note("call", member, args, {});
        afterCall();
        return result;
    }
    std::string_view className() const override
    {
        if (isClassUnknown) basic::raise(basic::ErrorNumber::ObjectNotSet);
        return className_;
    }
    bool isClassUnknown = false;

    // "Left = 30" for each property that was set, in order.
    std::vector<std::string> puts() const
    {
        std::vector<std::string> lines;
        for (const Crossing& crossing : crossings)
            if (crossing.verb == "put")
                lines.push_back(std::string{crossing.member.name} + " = " + basic::toText(crossing.value));
        return lines;
    }

    std::map<std::string, basic::Variant> properties; // by name in upper case
    std::set<std::string> missing; // members that the control does not have, in upper case
    basic::Variant result; // of every call
    std::vector<Crossing> crossings;
    std::function<void()> afterPut = [] {}; // what comes in while a property is set
    std::function<void()> afterCall = [] {}; // and while a method is called

private:
    void note(
        const char* verb, const platform::Member& member, platform::Args args, const basic::Variant& value)
    {
        crossings.push_back({verb, member, {args.begin(), args.end()}, value});
    }
    void require(const platform::Member& member) const
    {
        if (missing.contains(basic::upperCase(member.name))) basic::raise(basic::ErrorNumber::NoSuchMember);
    }

    std::string className_;
};

} // namespace servopanel::testing
