#pragma once

#include "platform/control.h"
#include "platform/form_data.h"
#include "recording/memory/control_members.h"
#include "recording/memory/memory_world.h"
#include "recording/trace/value_text.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace servopanel::recording {

// A control without a face: it keeps its properties and converts what is put into them as the real ones do. Classes
// with more behaviour derive from it (see sibling_controls.h).
class MemoryControl : public platform::Control, public TracedObject {
public:
    MemoryControl(std::string_view className, std::string name, MemoryWorld& world);

    using platform::Control::get;
    using platform::Control::put;
    basic::Variant get(const platform::Member& member, platform::Args args) override;
    void put(const platform::Member& member, platform::Args args, const basic::Variant& value) override;
    void putRef(const platform::Member& member, platform::Args args, const basic::Variant& object) override;
    basic::Variant call(const platform::Member& member, platform::Args args) override;
    std::string_view className() const override { return className_; }
    const std::string& traceName() const override { return name_; }

    // What the form says about the control at its start; names that the class does not know are kept as they are.
    void setFirstValue(const platform::FirstValue& first);
    // The properties of another control of the same class, as a further element of its array gets them.
    void copyPropertiesOf(const MemoryControl& other);

    // The control that holds this one; none for the outermost.
    void setContainer(const MemoryControl* container) { container_ = container; }
    const MemoryControl* container() const { return container_; }
    // Whether it can be seen: itself and everything around it is visible.
    bool isShown() const;
    virtual bool isEnabled() const;

protected:
    MemoryWorld& world() const { return world_; }
    // What a put changed, by the property's own name.
    virtual void changed(std::string_view) { }

    const basic::Variant& kept(std::string_view property) const;
    bool isSet(std::string_view property) const;
    // Sets a property as the control itself does.
    void keep(std::string_view property, basic::Variant value);

private:
    // property: what findProperty says of the member.
    std::string keyOf(const platform::Member& member, const ControlProperty* property) const;

    std::string className_;
    std::string name_;
    MemoryWorld& world_;
    const MemoryControl* container_ = nullptr;
    std::map<std::string, basic::Variant, std::less<>> properties_; // by name in upper case
};

} // namespace servopanel::recording
