#include "panel/form/replay_command.h"

#include "basic/conversions.h"
#include "platform/form_data.h"

namespace servopanel::panel {

using platform::Args;
using platform::ChildId;
namespace classes = platform::classes;

namespace {

std::string number(Args args, std::size_t position)
{
    return position < args.size() ? basic::toText(args[position]) : std::string{};
}

std::string element(ChildId child)
{
    return std::string{child.name} + " " + basic::decimal(std::int32_t{child.index});
}

std::optional<std::string> ofPage(ChildId child, std::string_view event, Args args)
{
    if (event == "MouseDown" && (child.name.starts_with("Sollwert") || child.name.starts_with("Zeichnung")))
        return "touch " + element(child);
    if (event == "SchalterGedrückt") return "touch " + element(child);
    if (event == "TasteClick") return "key " + number(args, 0);
    if (event == "NeuePos") return "pagescroll " + number(args, 0);
    if (event == "Timer") return "timer";
    return {};
}

std::optional<std::string> ofMenu(ChildId child, std::string_view event, Args args)
{
    if (event == "TasteClick") return "menukey " + number(args, 0);
    if (event == "NeuePos") return "scroll " + number(args, 0);
    std::string what;
    if (event == "MouseDown") what = "down";
    if (event == "MouseMove") what = "move";
    if (event == "MouseUp") what = "up";
    if (what.empty() || args.size() < 4) return {};
    const std::string place = number(args, 2) + " " + number(args, 3);
    if (child.name.empty()) return what + " " + place;
    if (child.name != "Beschriftung" && child.name != "BildIm") return {};
    return "menu" + what + " " + element(child) + " " + place;
}

} // namespace

std::optional<std::string> replayCommand(
    std::string_view control, ChildId child, std::string_view event, Args args)
{
    if (control == classes::ServoMain) return ofPage(child, event, args);
    if (control == classes::ServoMenu) return ofMenu(child, event, args);
    if (event == "SpracheGeandert") return "language " + number(args, 0);
    return {};
}

} // namespace servopanel::panel
