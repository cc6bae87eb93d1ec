#include "recording/trace/recorded_form.h"

#include "basic/conversions.h"
#include "recording/trace/boolean_members.h"
#include "recording/trace/recorded_child.h"

#include <memory>
#include <utility>

namespace servopanel::recording {

namespace {

std::string pointText(float x, float y) { return "(" + numberText(x) + "," + numberText(y) + ")"; }

} // namespace

platform::ControlRef RecordedForm::child(platform::ChildId id)
{
    platform::ControlRef inner = inner_.child(id);
    return std::make_shared<RecordedChild>(std::move(inner), objectText(owner_, id), paths_, sink_);
}

void RecordedForm::load(platform::ChildId id)
{
    sink_.line("load " + objectText(owner_, id));
    inner_.load(id);
}

float RecordedForm::textWidth(platform::ChildId id, std::string_view text)
{
    return inner_.textWidth(id, text);
}

basic::Variant RecordedSurface::get(const platform::Member& member) { return inner_.get(member); }

void RecordedSurface::put(const platform::Member& member, const basic::Variant& value)
{
    sink_.line("put " + owner_ + "." + memberText(member) + " = "
        + valueText(value, paths_, propertyKind(owner_, member)));
    inner_.put(member, value);
}

void RecordedSurface::line(
    platform::ChildId target, float x1, float y1, float x2, float y2, std::int32_t colour, std::int16_t flags)
{
    sink_.line("line " + objectText(owner_, target) + " " + pointText(x1, y1) + "-" + pointText(x2, y2) + " "
        + colourText(colour) + " " + basic::decimal(std::int32_t{flags}));
    inner_.line(target, x1, y1, x2, y2, colour, flags);
}

void RecordedSurface::clear(platform::ChildId target)
{
    sink_.line("call " + objectText(owner_, target) + ".Cls()");
    inner_.clear(target);
}

void RecordedSurface::refresh(platform::ChildId target)
{
    sink_.line("call " + objectText(owner_, target) + ".Refresh()");
    inner_.refresh(target);
}

void RecordedSurface::bitBlt(platform::ChildId from, platform::ChildId to, std::int32_t x, std::int32_t y,
    std::int32_t width, std::int32_t height)
{
    sink_.line("bitblt " + objectText(owner_, from) + " " + objectText(owner_, to) + " " + basic::decimal(x)
        + " " + basic::decimal(y) + " " + basic::decimal(width) + " " + basic::decimal(height));
    inner_.bitBlt(from, to, x, y, width, height);
}

void RecordedSurface::stretchBlt(platform::ChildId from, platform::ChildId to, std::int32_t fromWidth,
    std::int32_t fromHeight, std::int32_t width, std::int32_t height)
{
    sink_.line("stretch " + objectText(owner_, from) + " " + objectText(owner_, to) + " "
        + basic::decimal(width) + " " + basic::decimal(height));
    inner_.stretchBlt(from, to, fromWidth, fromHeight, width, height);
}

void RecordedOwner::raise(std::string_view event, platform::Args args)
{
    std::string list;
    for (const basic::Variant& value : args) {
        if (!list.empty()) list += ", ";
        list += valueText(value, paths_);
    }
    sink_.line("raise " + owner_ + "." + std::string{event} + "(" + list + ")");
    inner_.raise(event, args);
}

} // namespace servopanel::recording
