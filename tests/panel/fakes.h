#pragma once

#include "basic/conversions.h"
#include "basic/error.h"
#include "panel/form/control_host.h"
#include "panel/form/header.h"
#include "panel/form/services.h"
#include "platform/ids.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace servopanel::testing {

// A panel around the controls that answers from maps and keeps what it was told.
class FakeServices : public panel::Services {
public:
    std::string text(std::string_view key) override { return texts[std::string{key}]; }
    panel::LanguageFont font() override { return {}; }
    QString word(panel::PanelText text) override { return panel::panelWord(text, "en"); }
    QImage picture(std::string_view name) override { return pictures[std::string{name}]; }
    void mirror(std::string_view variable, const basic::Variant& value) override
    {
        mirrored[std::string{variable}] = value;
    }
    void operation(const std::string& command) override { operations.push_back(command); }

    std::map<std::string, std::string> texts;
    std::map<std::string, QImage> pictures;
    std::map<std::string, basic::Variant> mirrored;
    std::vector<std::string> operations;
};

class FakeHeader : public panel::HeaderSource {
public:
    std::vector<panel::HeaderLanguage> languages() override { return {{1, "Deutsch"}, {2, "English"}}; }
    int language() override { return current; }
    void chooseLanguage(int number) override { current = number; }
    panel::HeaderTexts headerTexts() override { return {}; }

    int current = 1;
};

// A control of the library that notes its events and lets a test act within its procedures.
class FakeHosted : public platform::HostedControl {
public:
    FakeHosted(platform::FormData form, const platform::ControlPlatform& given, std::vector<std::string>& log)
        : platform{given}
        , form_{form}
        , log_{log}
    {
    }
    void initialize() override { log_.emplace_back("initialize"); }
    void show() override { log_.emplace_back("show"); }
    void terminate() override { log_.emplace_back("terminate"); }
    basic::Variant get(const platform::Member& member) override
    {
        if (basic::Variant* found = find(member)) return *found;
        basic::raise(basic::ErrorNumber::NoSuchMember);
    }
    void put(const platform::Member& member, const basic::Variant& value) override
    {
        if (basic::Variant* found = find(member))
            *found = value;
        else
            basic::raise(basic::ErrorNumber::NoSuchMember);
    }
    bool deliver(platform::ChildId child, std::string_view event, platform::Args args) override
    {
        std::string line{child.name};
        if (child.hasIndex()) line += "(" + basic::decimal(std::int32_t{child.index}) + ")";
        line += "." + std::string{event};
        for (const basic::Variant& arg : args)
            line += " " + basic::toText(arg);
        log_.push_back(line);
        if (during) during();
        return true;
    }
    platform::FormData form() const override { return form_; }

    platform::ControlPlatform platform;
    std::function<void()> during; // runs within every event's procedure
    basic::Variant bildInit{std::int16_t{0}};

private:
    basic::Variant* find(const platform::Member& member)
    {
        return panel::isSame(member, platform::names::BildInit) ? &bildInit : nullptr;
    }

    platform::FormData form_;
    std::vector<std::string>& log_;
};

// A form of one control on a stage, with everything around it faked.
class FakeForm {
public:
    explicit FakeForm(platform::FormData form, std::string className = "ServoMain")
    {
        stage.resize(1280, 1024);
        host = std::make_unique<panel::ControlHost>(className, &stage, surroundings(form));
        host->put(platform::names::Width, {}, 19200.0F);
        host->put(platform::names::Height, {}, 15360.0F);
        host->put(platform::names::Visible, {}, true);
        log.clear();
    }

    platform::Form& form() { return hosted->platform.form; }
    platform::Surface& surface() { return hosted->platform.surface; }
    panel::Child& child(std::string_view name, std::int16_t index = platform::ChildId::noIndex)
    {
        return host->require<panel::Child>(name, index);
    }

    FakeServices services;
    FakeHeader header;
    panel::EventGate gate;
    QWidget stage;
    std::vector<std::string> log;
    FakeHosted* hosted = nullptr;
    std::unique_ptr<panel::FormSurroundings> around;
    std::unique_ptr<panel::ControlHost> host;

private:
    panel::FormSurroundings& surroundings(platform::FormData form)
    {
        around.reset(new panel::FormSurroundings{services, gate, header,
            [this, form](std::string_view, const platform::ControlPlatform& platform) {
                auto control = std::make_unique<FakeHosted>(form, platform, log);
                if (hosted == nullptr) hosted = control.get();
                return panel::MadeControl{nullptr, std::move(control)};
            }});
        return *around;
    }
};

} // namespace servopanel::testing
