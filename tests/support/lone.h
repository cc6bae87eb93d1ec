#pragma once

#include "support/fake_control.h"
#include "support/fakes.h"

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
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
    // What else was done to pictures: "bitblt TempPicQuelle TempPicZwischen 22 12 200 73".
    std::vector<std::string> worked;
    std::string refused; // the one of these that fails
    std::vector<std::string> events; // what the owner was told: "ServoBildAufrufen 6"
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

    // "Width = 19200" for each property of its own that was set, in order.
    std::vector<std::string> puts() const { return own_.puts(); }

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
    void put(const platform::Member& member, const basic::Variant& value) override
    {
        if (failingSurface) basic::raise(basic::ErrorNumber::ObjectNotSet);
        own_.put(member, value);
    }
    void line(platform::ChildId target, float x1, float y1, float x2, float y2, std::int32_t colour,
        std::int16_t flags) override
    {
        if (failingLines-- > 0) basic::raise(basic::ErrorNumber::ObjectNotSet);
        std::string text{target.name};
        text += "(" + std::to_string(target.index) + ")";
        const basic::Variant parts[]{x1, y1, x2, y2, colour, flags};
        drawn.push_back(withParts(std::move(text), parts));
    }
    void clear(platform::ChildId target) override { work("clear", {target}, {}); }
    void refresh(platform::ChildId target) override { work("refresh", {target}, {}); }
    void bitBlt(platform::ChildId from, platform::ChildId to, std::int32_t x, std::int32_t y, std::int32_t w,
        std::int32_t h) override
    {
        work("bitblt", {from, to}, {x, y, w, h});
    }
    void stretchBlt(platform::ChildId from, platform::ChildId to, std::int32_t fromW, std::int32_t fromH,
        std::int32_t w, std::int32_t h) override
    {
        work("stretch", {from, to}, {fromW, fromH, w, h});
    }
    void raise(std::string_view event, platform::Args args) override
    {
        if (broken) throw std::runtime_error{"a mistake of the host"};
        if (failing) basic::raise(basic::ErrorNumber::ObjectNotSet);
        events.push_back(withParts(std::string{event}, args));
        raised();
    }

private:
    static std::string withParts(std::string text, platform::Args parts)
    {
        for (const basic::Variant& part : parts)
            text += " " + basic::toText(part);
        return text;
    }
    void work(std::string text, std::initializer_list<platform::ChildId> boxes,
        std::initializer_list<std::int32_t> pixels)
    {
        for (const platform::ChildId& box : boxes)
            text.append(" ").append(box.name);
        const std::vector<basic::Variant> parts(pixels.begin(), pixels.end());
        text = withParts(std::move(text), parts);
        if (text == refused) basic::raise(basic::ErrorNumber::ObjectNotSet);
        worked.push_back(text);
    }

    FakeControl own_{"itself"};
    std::map<std::string, std::shared_ptr<FakeControl>> children_;
};

} // namespace servopanel::testing
