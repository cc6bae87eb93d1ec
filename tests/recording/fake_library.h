#pragma once

#include "basic/conversions.h"
#include "platform/facades/eingabemaske.h"
#include "platform/facades/ini_eingabe.h"
#include "platform/ids.h"
#include "recording/replay.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace servopanel::testing {

// A control that notes into the trace what a host does with it (as a read of a variable of that name) and runs what a
// test wants to happen then.
class FakeHosted final : public platform::HostedControl {
public:
    using Reaction = std::function<void(FakeHosted& self)>;
    struct Shared {
        std::shared_ptr<platform::ProcessVarAccess> variables; // recorded, to leave a line
        std::map<std::string, Reaction> reactions; // by what happens, "ServoMain MouseDown" for example
        std::map<std::string, basic::Variant> properties; // of all controls, "ServoMain.BildShow"
        int alive = 0;
    };

    FakeHosted(std::string className, const platform::ControlPlatform& controlPlatform, Shared& shared)
        : platform{controlPlatform}
        , className_{std::move(className)}
        , shared_{shared}
    {
        ++shared_.alive;
    }
    ~FakeHosted() override { --shared_.alive; }

    void initialize() override { happens("initialize"); }
    void show() override { happens("show"); }
    void terminate() override { happens("terminate"); }
    basic::Variant get(const platform::Member& member) override
    {
        return shared_.properties[className_ + "." + std::string{member.name}];
    }
    void put(const platform::Member& member, const basic::Variant& value) override
    {
        shared_.properties[className_ + "." + std::string{member.name}] = value;
        happens("put " + std::string{member.name});
    }
    bool deliver(platform::ChildId child, std::string_view event, platform::Args args) override
    {
        std::string text = recording::objectText({}, child);
        if (!child.name.empty()) text.erase(0, 1); // the point behind the empty owner
        text += text.empty() ? std::string{event} : " " + std::string{event};
        for (const basic::Variant& value : args)
            text += " " + basic::toText(value);
        happens(text);
        return true;
    }
    platform::FormData form() const override;

    platform::ControlPlatform platform;

private:
    void happens(const std::string& what)
    {
        const std::string line = className_ + " " + what;
        try {
            shared_.variables->ReadValue(line);
        } catch (const basic::Error&) {
            // Only the line matters.
        }
        if (const auto reaction = shared_.reactions.find(line); reaction != shared_.reactions.end())
            reaction->second(*this);
    }

    std::string className_;
    Shared& shared_;
};

namespace fake_forms {

namespace classes = servopanel::platform::classes;
using platform::FirstValue;
using platform::FormChild;

inline constexpr FirstValue visible[]{{"Visible", true}};
inline constexpr FirstValue limited[]{
    {"Visible", true}, {"Untergrenze", std::string_view{"0"}}, {"Obergrenze", std::string_view{"100"}}};
inline constexpr FirstValue hidden[]{{"Visible", false}};
inline constexpr FirstValue off[]{{"Enabled", false}};
inline constexpr FormChild servo[]{
    {{"Header"}, classes::Header, {}, visible},
    {{"ServoMain"}, classes::ServoMain, {}, visible},
    {{"ServoMenu"}, classes::ServoMenu, {}, hidden},
};
inline constexpr FormChild page[]{
    {{"Fußzeile"}, classes::Fußzeile, {}, visible},
    {{"MainRahmen", 1}, classes::PictureBox, {}, visible},
    {{"SollwertL", 5}, classes::VWSVarIn, {"MainRahmen", 1}, limited},
    {{"SollwertL", 6}, classes::VWSVarIn, {"MainRahmen", 1}, hidden},
    {{"SchalterR", 33}, classes::Schalter, {}, visible},
    {{"ZeichnungL", 43}, classes::VWSIndex, {}, visible},
    {{"ScrollBar"}, classes::ScrollBar, {}, visible},
    {{"Timer"}, classes::Timer, {}, off},
    {{"Eingabemaske"}, classes::Eingabemaske, {}, hidden},
    {{"IniEingabe"}, classes::IniEingabe, {}, hidden},
};
inline constexpr FormChild menu[]{
    {{"Fußzeile"}, classes::Fußzeile, {}, visible},
    {{"ScrollBar"}, classes::ScrollBar, {}, visible},
    {{"BildIm", 1}, classes::PictureBox, {}, visible},
};

} // namespace fake_forms

inline platform::FormData FakeHosted::form() const
{
    if (className_ == "Servo") return fake_forms::servo;
    if (className_ == "ServoMain") return fake_forms::page;
    return fake_forms::menu;
}

// Gives a replay fake controls instead of the library's.
class FakeLibrary {
public:
    recording::LibraryMaker maker()
    {
        return [this](const platform::LibraryPlatform& platform) -> recording::ControlMaker {
            library = std::make_unique<platform::LibraryPlatform>(platform);
            shared.variables = platform.objects.createProcessVarAccess();
            return [this](std::string_view className, const platform::ControlPlatform& controlPlatform) {
                return std::make_unique<FakeHosted>(std::string{className}, controlPlatform, shared);
            };
        };
    }

    FakeHosted::Shared shared;
    std::unique_ptr<platform::LibraryPlatform> library;
};

} // namespace servopanel::testing
