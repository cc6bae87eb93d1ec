#pragma once

#include "panel/form/child.h"
#include "panel/form/control_maker.h"
#include "panel/form/eingabemaske.h"
#include "panel/form/picture_child.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace servopanel::panel {

// One control of the library on the screen: a child of its container that has children of its own. It makes them after
// the control's form, gives the control what it draws on, and passes events in and out.
//
// Seen from its container it is a control like any other; properties that no control has from its container are those
// of the library's control (BildInit and so on).
class ControlHost : public PictureChild,
                    private platform::Form,
                    private platform::Surface,
                    private platform::Owner {
public:
    ControlHost(std::string className, QWidget* parent, FormSurroundings& surroundings);
    ~ControlHost() override;

    using PictureChild::get;
    using PictureChild::put;
    basic::Variant get(const platform::Member& member, platform::Args args) override;
    void put(const platform::Member& member, platform::Args args, const basic::Variant& value) override;

    // The control appears on the screen; once in its life.
    void show();
    // The end of the control and of all controls in it; every call of theirs fails from now on.
    void terminate();
    bool hasEnded() const { return ended_; }

    // Who is told of the control's own events.
    using Owned = std::function<void(std::string_view event, platform::Args args)>;
    void setOwner(Owned owner) { owner_ = std::move(owner); }
    // Hears what the controls in this one raise before the library does; true keeps it from the library.
    using Overhears =
        std::function<bool(std::string_view control, std::string_view event, platform::Args args)>;
    void setOverhears(Overhears overhears) { overhears_ = std::move(overhears); }
    // As if a control in this one had raised it.
    void raiseInside(std::string_view control, std::string_view event, platform::Args args);

    // nullptr when there is no such child.
    Child* find(std::string_view name, std::int16_t index = platform::ChildId::noIndex);
    template <class C>
    C& require(std::string_view name, std::int16_t index = platform::ChildId::noIndex)
    {
        auto* found = dynamic_cast<C*>(find(name, index));
        if (found == nullptr) basic::raise(basic::ErrorNumber::ObjectNotSet, name);
        return *found;
    }
    void forEach(const std::function<void(std::string_view name, std::int16_t index, Child&)>& visit);

    void languageChanged() override;

    // Caption and unit of one of its inputs, as they stand on the screen, and how far its value is known.
    Beside beside(const platform::Control& input);

    // Shows which values are only the last known ones.
    void showValueStates();

    // An event of a child, or of the control's own surface when the name is empty.
    bool deliver(platform::ChildId id, std::string_view event, platform::Args args);

private:
    using Key = std::pair<std::string, std::int16_t>;
    // A control array, by its name.
    struct Elements {
        ChildRef first;
        std::string className;
        QWidget* parent;
        std::int16_t highest;
    };

    // Form
    platform::ControlRef child(platform::ChildId id) override;
    void load(platform::ChildId id) override;
    float textWidth(platform::ChildId id, std::string_view text) override;
    // Surface
    basic::Variant get(const platform::Member& member) override;
    void put(const platform::Member& member, const basic::Variant& value) override;
    void line(platform::ChildId target, float x1, float y1, float x2, float y2, std::int32_t colour,
        std::int16_t flags) override;
    void clear(platform::ChildId target) override;
    void refresh(platform::ChildId target) override;
    void bitBlt(platform::ChildId from, platform::ChildId to, std::int32_t x, std::int32_t y,
        std::int32_t width, std::int32_t height) override;
    void stretchBlt(platform::ChildId from, platform::ChildId to, std::int32_t fromWidth,
        std::int32_t fromHeight, std::int32_t width, std::int32_t height) override;
    // Owner
    void raise(std::string_view event, platform::Args args) override;

    void makeChildren();
    ChildRef makeChild(std::string_view className, QWidget* parent);
    void adopt(const Key& key, const ChildRef& child, QWidget* parent);
    ChildRef require(platform::ChildId id);
    CanvasView& canvasOf(platform::ChildId id);
    const Key* litUpDrawing();
    ValueState inputState(const Key& key, const ValueSource& source);
    bool isWhole(const std::string& name, std::int16_t index);
    ValueState limitsState(const std::string& name, std::int16_t index);
    QString shownText(const std::string& name, std::int16_t index);
    void displaysStartAnew();
    bool deliverToRow(platform::ChildId touched, std::string_view event, platform::Args args);
    bool mayEnter(std::string_view event) const;
    void procedureEnded();

    FormSurroundings& surroundings_;
    MadeControl made_;
    std::map<Key, ChildRef> children_;
    std::map<Key, std::string> putFrom_; // variable that the value of an input came from
    std::map<std::string, Elements, std::less<>> arrays_;
    Owned owner_;
    Overhears overhears_;
    Child* touched_ = nullptr; // what raised the event that is being delivered
    std::optional<Key> switchInTouch_; // whose row the finger came down on
    bool ended_ = false;
};

} // namespace servopanel::panel
