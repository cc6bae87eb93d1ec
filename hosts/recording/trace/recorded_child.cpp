#include "recording/trace/recorded_child.h"

#include "platform/form_data.h"
#include "platform/ids.h"
#include "recording/trace/boolean_members.h"

#include <utility>
#include <vector>

namespace servopanel::recording {

namespace {

std::vector<basic::Variant> unwrappedAll(platform::Args args)
{
    std::vector<basic::Variant> result;
    result.reserve(args.size());
    for (const basic::Variant& value : args)
        result.push_back(unwrapped(value));
    return result;
}

std::string argumentList(
    std::string_view className, const platform::Member& member, platform::Args args, const PathNames& paths)
{
    std::string text = "(";
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (i > 0) text += ", ";
        text += valueText(args[i], paths, argumentKind(className, member, i));
    }
    return text + ")";
}

} // namespace

basic::Variant unwrapped(const basic::Variant& value)
{
    const basic::ObjectRef* object = value.get<basic::ObjectRef>();
    if (object == nullptr) return value;
    const auto recorded = std::dynamic_pointer_cast<RecordedChild>(*object);
    return recorded ? basic::Variant{recorded->inner()} : value;
}

platform::Control& unwrapped(platform::Control& control)
{
    auto* recorded = dynamic_cast<RecordedChild*>(&control);
    return recorded == nullptr ? control : *recorded->inner();
}

std::string RecordedChild::putText(
    const platform::Member& member, platform::Args args, const basic::Variant& value) const
{
    const std::string indices =
        args.empty() ? std::string{} : argumentList(className(), member, args, paths_);
    return "put " + name_ + "." + memberText(member) + indices + " = "
        + valueText(value, paths_, propertyKind(className(), member));
}

basic::Variant RecordedChild::get(const platform::Member& member, platform::Args args)
{
    return inner_->get(member, unwrappedAll(args));
}

void RecordedChild::put(const platform::Member& member, platform::Args args, const basic::Variant& value)
{
    sink_.line(putText(member, args, value));
    inner_->put(member, unwrappedAll(args), unwrapped(value));
}

void RecordedChild::putRef(const platform::Member& member, platform::Args args, const basic::Variant& object)
{
    sink_.line(putText(member, args, object));
    inner_->putRef(member, unwrappedAll(args), unwrapped(object));
}

basic::Variant RecordedChild::call(const platform::Member& member, platform::Args args)
{
    const bool isTextLookUp = className() == platform::classes::VWSLanguage
        && member.id == platform::ids::VWSLanguage::Text.id && args.size() == 1;
    if (isTextLookUp) {
        const std::string* key = args[0].get<std::string>();
        return recordedCall(member, args, "text " + (key ? *key : valueText(args[0], paths_)), " = ");
    }
    const std::string list = argumentList(className(), member, args, paths_);
    return recordedCall(member, args, "call " + name_ + "." + memberText(member) + list, " -> ");
}

basic::Variant RecordedChild::recordedCall(
    const platform::Member& member, platform::Args args, std::string line, std::string_view arrow)
{
    TraceSink::Slot slot = sink_.open(line);
    basic::Variant result = inner_->call(member, unwrappedAll(args));
    if (result.type() != basic::VariantType::Empty)
        slot.complete(std::move(line) + std::string{arrow} + valueText(result, paths_));
    return result;
}

} // namespace servopanel::recording
