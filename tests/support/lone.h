#pragma once

#include "support/fake_control.h"
#include "support/fakes.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace servopanel::testing {

// A control of the library among fakes: every child is there, keeps what it is given and reads as 1; on request none of
// them answers.
template <class C>
class Lone final : public platform::Form, public platform::Surface, public platform::Owner {
public:
    bool failing = false;
    bool broken =
        false; // whatever is asked of a child or the owner ends in an exception that is no error of the seam
    std::set<std::string> gone; // single elements that do not answer: "BildIm(1)"
    bool failingSurface = false; // the control's own properties cannot be set
    int failingLines = 0; // so many lines cannot be drawn
    std::vector<std::string> drawn; // every line: "MainBereich(1) 0 15 9015 615 12632256 38"
    std::function<float()> width = [] { return 0.0F; }; // of every text
    std::function<void()> raised = [] {};

    Surround surround;
    display::MGlobal global{surround.umfeld};
    config::MService service{surround.umfeld};
    config::MServoModul servoModul{surround.umfeld, global};
    C control{{surround.umfeld, global, service, servoModul}, {*this, *this, *this}};

    std::shared_ptr<FakeControl> fake(const std::string& name)
    {
        std::shared_ptr<FakeControl>& known = children_[name];
        if (!known) {
            known = std::make_shared<FakeControl>(name);
            known->result = std::int32_t{0};
            for (const char* property : {"POSITION", "LEFT", "TOP", "WIDTH", "HEIGHT", "VISIBLE", "WERT"})
                known->properties[property] = std::int16_t{1};
        }
        return known;
    }

    platform::ControlRef child(platform::ChildId id) override
    {
        if (broken) throw std::runtime_error{"a mistake of the host"};
        // The scroll bar goes on answering: without a position nothing would reach the others.
        if (failing && id.name != "ScrollBar") basic::raise(basic::ErrorNumber::ObjectNotSet);
        if (gone.contains(std::string{id.name} + "(" + std::to_string(id.index) + ")"))
            basic::raise(basic::ErrorNumber::ObjectNotSet);
        return fake(std::string{id.name});
    }
    void load(platform::ChildId) override { }
    float textWidth(platform::ChildId, std::string_view) override { return width(); }
    basic::Variant get(const platform::Member&) override { return {}; }
    void put(const platform::Member&, const basic::Variant&) override
    {
        if (failingSurface) basic::raise(basic::ErrorNumber::ObjectNotSet);
    }
    void line(platform::ChildId target, float x1, float y1, float x2, float y2, std::int32_t colour,
        std::int16_t flags) override
    {
        if (failingLines-- > 0) basic::raise(basic::ErrorNumber::ObjectNotSet);
        std::string text{target.name};
        text += "(" + std::to_string(target.index) + ")";
        for (const basic::Variant& part : {basic::Variant{x1}, basic::Variant{y1}, basic::Variant{x2},
                 basic::Variant{y2}, basic::Variant{colour}, basic::Variant{flags}})
            text += " " + basic::toText(part);
        drawn.push_back(text);
    }
    void clear(platform::ChildId) override { }
    void refresh(platform::ChildId) override { }
    void bitBlt(
        platform::ChildId, platform::ChildId, std::int32_t, std::int32_t, std::int32_t, std::int32_t) override
    {
    }
    void stretchBlt(
        platform::ChildId, platform::ChildId, std::int32_t, std::int32_t, std::int32_t, std::int32_t) override
    {
    }
    void raise(std::string_view, platform::Args) override
    {
        if (broken) throw std::runtime_error{"a mistake of the host"};
        if (failing) basic::raise(basic::ErrorNumber::ObjectNotSet);
        raised();
    }

private:
    std::map<std::string, std::shared_ptr<FakeControl>> children_;
};

} // namespace servopanel::testing
