#include "recording/memory/memory_form.h"

#include "basic/error.h"
#include "platform/ids.h"
#include "recording/memory/failures.h"
#include "recording/memory/sibling_controls.h"
#include "recording/trace/value_text.h"

#include <limits>

namespace servopanel::recording {

namespace {

constexpr std::int32_t noSuchElement = 340;

} // namespace

void MemoryForm::build(platform::FormData form, const MemoryControl& self)
{
    for (const platform::FormChild& row : form) {
        auto control = makeControl(row.className, objectText(owner_, row.id), world_);
        const auto parent = row.parent.name.empty() ? nullptr : find(row.parent);
        control->setContainer(parent ? parent.get() : &self);
        for (const platform::FirstValue& first : row.values)
            control->setFirstValue(first);
        children_.insert_or_assign({std::string{row.id.name}, row.id.index}, std::move(control));
    }
}

void MemoryForm::requireLife() const
{
    if (ended_) basic::raise(basic::ErrorNumber::ObjectNotSet);
}

std::shared_ptr<MemoryControl> MemoryForm::find(platform::ChildId id) const
{
    const auto child = children_.find({std::string{id.name}, id.index});
    return child == children_.end() ? nullptr : child->second;
}

bool MemoryForm::hasArray(std::string_view name) const
{
    const auto first = children_.lower_bound({std::string{name}, std::int16_t{0}});
    return first != children_.end() && first->first.first == name;
}

std::shared_ptr<MemoryControl> MemoryForm::require(platform::ChildId id) const
{
    if (auto control = find(id)) return control;
    const std::string name = objectText(owner_, id);
    if (id.hasIndex() && hasArray(id.name))
        raiseError(noSuchElement, "Control array element does not exist: " + name);
    basic::raise(basic::ErrorNumber::ObjectNotSet, "No control " + name);
}

platform::ControlRef MemoryForm::child(platform::ChildId id)
{
    requireLife();
    return require(id);
}

void MemoryForm::load(platform::ChildId id)
{
    requireLife();
    const auto first = children_.lower_bound({std::string{id.name}, std::int16_t{0}});
    if (!id.hasIndex() || first == children_.end() || first->first.first != id.name)
        basic::raise(basic::ErrorNumber::ObjectNotSet, "No control array " + objectText(owner_, id));
    if (find(id)) basic::raise(basic::ErrorNumber::ElementAlreadyLoaded);
    const std::shared_ptr<MemoryControl> model = first->second;
    auto control = makeControl(model->className(), objectText(owner_, id), world_);
    control->copyPropertiesOf(*model);
    children_.emplace(Key{std::string{id.name}, id.index}, std::move(control));
}

float MemoryForm::textWidth(platform::ChildId id, std::string_view text)
{
    requireLife();
    require(id);
    return textWidthOf(text, world_);
}

void MemorySurface::requireLife() const
{
    if (ended_) basic::raise(basic::ErrorNumber::ObjectNotSet);
}

void MemorySurface::requireTarget(platform::ChildId target) const
{
    requireLife();
    if (!target.name.empty()) form_.child(target);
}

basic::Variant MemorySurface::get(const platform::Member& member)
{
    requireLife();
    return self_.MemoryControl::get(member, {});
}

void MemorySurface::put(const platform::Member& member, const basic::Variant& value)
{
    requireLife();
    self_.MemoryControl::put(member, {}, value);
}

void MemorySurface::line(platform::ChildId target, float, float, float, float, std::int32_t, std::int16_t)
{
    requireTarget(target);
}

void MemorySurface::clear(platform::ChildId target) { requireTarget(target); }

void MemorySurface::refresh(platform::ChildId target) { requireTarget(target); }

void MemorySurface::bitBlt(
    platform::ChildId from, platform::ChildId to, std::int32_t, std::int32_t, std::int32_t, std::int32_t)
{
    requireTarget(from);
    requireTarget(to);
}

void MemorySurface::stretchBlt(
    platform::ChildId from, platform::ChildId to, std::int32_t, std::int32_t, std::int32_t, std::int32_t)
{
    requireTarget(from);
    requireTarget(to);
}

} // namespace servopanel::recording
