#pragma once

#include "basic/error.h"
#include "panel/form/services.h"
#include "platform/control.h"

#include <QFont>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <string>
#include <vector>

namespace servopanel::panel {

// One child of a form: a widget together with the late-bound properties of its class. Every class adds its own members
// to those of the container (place, size, visibility, enabling) and of the font, which all controls have.
//
// Setting a property never raises an event: widgets report only what the operator does, and whatever they report while
// a property is being set is dropped.
class Child : public platform::Control {
public:
    Child(std::string className, QWidget& view, Services& services);
    // Deleted later by the event loop, because one of the widget's own events may be under way.
    ~Child() override;

    using platform::Control::get;
    using platform::Control::put;
    basic::Variant get(const platform::Member& member, platform::Args args) override;
    void put(const platform::Member& member, platform::Args args, const basic::Variant& value) override;
    void putRef(const platform::Member& member, platform::Args args, const basic::Variant& object) override;
    basic::Variant call(const platform::Member& member, platform::Args args) override;
    std::string_view className() const override { return className_; }

    // After the form's end every call fails with error 91.
    void end();

    QWidget& view() { return *view_; }
    const QWidget& view() const { return *view_; }
    QWidget* viewOrNull() { return view_; }

    // Events go to the form. False when the control has no handler for them.
    using Raise = std::function<bool(std::string_view event, platform::Args args)>;
    void setRaise(Raise raise) { raise_ = std::move(raise); }

    // Takes over all properties of another child of the same class, as a further element of a control array starts.
    void copyFrom(Child& first);

    // The operator has chosen another language.
    virtual void languageChanged() { }
    // The machine's values have been read and shown anew, or are known to be old.
    virtual void valuesShown() { }
    // For controls that show a value of the machine: how far it is the machine's.
    virtual void setValueState(ValueState) { }
    // What they show of it.
    virtual ValueState valueState() const { return ValueState::Fresh; }
    // Whether it holds a value of the operator that waits to be written.
    virtual bool isChanged() const { return false; }
    // Told when the library puts a value of the machine into an input.
    void setValuePutHandler(std::function<void()> put) { valuePut_ = std::move(put); }
    // Lights an input up while the mask or the definition editor works on it.
    virtual void setBeingEdited(bool) { }
    // Width of a text in the control's font, pixels.
    int textWidth(const QString& text) const;

    float width() const { return width_; }
    float height() const { return height_; }
    bool enabled() const { return enabled_; }

protected:
    using Getter = std::function<basic::Variant()>;
    using Setter = std::function<void(const basic::Variant&)>;
    using Method = std::function<basic::Variant(platform::Args)>;
    // copied: false for what a further element of an array does not take over.
    void addProperty(const platform::Member& member, Getter get, Setter set, bool copied = true);
    void addReference(const platform::Member& member, Setter set);
    void addMethod(const platform::Member& member, std::size_t arguments, Method method);

    void valuePut()
    {
        if (valuePut_) valuePut_();
    }
    bool raise(std::string_view event, std::initializer_list<basic::Variant> args = {});
    Services& services() { return services_; }

    // Sizes that a picture or a text decides.
    void setSize(float width, float height);
    void setFontSize(float points);
    QFont font() const;
    virtual void fontChanged() { }
    virtual void placed() { }
    virtual void enabledChanged() { }
    virtual void visibleChanged(bool) { }

private:
    struct Property {
        platform::Member member;
        Getter get;
        Setter set;
        bool copied;
    };
    struct Operation {
        platform::Member member;
        std::size_t arguments;
        Method method;
    };

    void addContainerProperties();
    void addFontProperties();
    Property& property(const platform::Member& member, platform::Args args);
    void requireAlive() const;
    void place();

    std::string className_;
    QPointer<QWidget> view_;
    Services& services_;
    std::vector<Property> properties_;
    std::vector<Property> references_;
    std::vector<Operation> operations_;
    Raise raise_;
    std::function<void()> valuePut_;
    float left_ = 0;
    float top_ = 0;
    float width_ = 0;
    float height_ = 0;
    std::string fontName_ = "DejaVu Sans";
    std::int16_t charset_ = 0;
    std::int16_t weight_ = 400; // 400 normal, 700 bold
    float points_ = 8;
    bool visible_ = false;
    bool enabled_ = true;
    bool ended_ = false;
    int setting_ = 0;
};

using ChildRef = std::shared_ptr<Child>;

// Whether a call means this member: by id, or by name without regard to case.
bool isSame(const platform::Member& asked, const platform::Member& own);

} // namespace servopanel::panel
