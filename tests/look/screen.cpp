#include "look/screen.h"

#include "machine/project_file.h"
#include "panel/form/fusszeile.h"
#include "panel/form/scroll_bar.h"
#include "panel/widgets/canvas_view.h"
#include "panel/widgets/message_sheet.h"
#include "panel/widgets/switch_view.h"
#include "panel/widgets/text_view.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>

namespace servopanel::look {

using panel::Panel;

namespace {

constexpr int settleMs = 1; // everything that a touch sets off is in the event queue

// Names of the form where a widget has one: "SollwertL(3)".
std::map<const QWidget*, std::string> namesOf(Panel& panel)
{
    std::map<const QWidget*, std::string> names{{&panel.window().stage(), "Stage"}};
    const std::function<void(panel::ControlHost&)> add = [&](panel::ControlHost& host) {
        host.forEach([&](std::string_view name, std::int16_t index, panel::Child& child) {
            if (child.viewOrNull() == nullptr) return;
            names[&child.view()] = std::string{name}
                + (index == platform::ChildId::noIndex ? std::string{} : '(' + std::to_string(index) + ')');
            if (auto* inner = dynamic_cast<panel::ControlHost*>(&child)) add(*inner);
        });
    };
    if (panel.servo() != nullptr) {
        names[&panel.servo()->view()] = "Servo";
        add(*panel.servo());
    }
    return names;
}

std::string plainOrKey(const QWidget& widget)
{
    const auto* key = dynamic_cast<const panel::TouchKey*>(&widget);
    return plainName(widget) + (key == nullptr ? std::string{} : " '" + key->text().toStdString() + '\'');
}

NameOf nameOf(Panel& panel)
{
    return [names = namesOf(panel)](const QWidget& widget) {
        const auto known = names.find(&widget);
        if (known != names.end()) return known->second;
        // A part of a control carries the control's name in front.
        for (const QWidget* above = widget.parentWidget(); above != nullptr; above = above->parentWidget())
            if (const auto control = names.find(above); control != names.end())
                return control->second + '/' + plainOrKey(widget);
        return plainOrKey(widget);
    };
}

bool begins(const std::string& name, std::initializer_list<std::string_view> beginnings)
{
    return std::any_of(beginnings.begin(), beginnings.end(),
        [&](std::string_view beginning) { return name.rfind(beginning, 0) == 0; });
}

Fill fillOf(const QWidget& widget, const std::string& name)
{
    if (name.find('/') == std::string::npos) {
        if (begins(name, {"BildIm", "ParaPic"})) return Fill::Ground;
        if (begins(name, {"Sollwert", "Zeichnung", "IstWert", "ScrollBar"})) return Fill::All;
    }
    if (dynamic_cast<const panel::TouchKey*>(&widget) != nullptr) return Fill::All;
    if (dynamic_cast<const panel::SwitchView*>(&widget) != nullptr) return Fill::All;
    const auto* label = dynamic_cast<const QLabel*>(&widget);
    return label != nullptr && label->frameShape() != QFrame::NoFrame ? Fill::All : Fill::Nothing;
}

bool isSheet(const QWidget& widget)
{
    return dynamic_cast<const panel::Sheet*>(&widget) != nullptr
        || dynamic_cast<const panel::MessageSheet*>(&widget) != nullptr;
}

void setNumber(const std::filesystem::path& file, const std::string& member, int value)
{
    std::ifstream in{file};
    std::string text{std::istreambuf_iterator<char>{in}, {}};
    in.close();
    const std::size_t at = text.find('"' + member + "\": ");
    ASSERT_NE(at, std::string::npos) << member;
    const std::size_t number = text.find(':', at) + 2;
    text.replace(number, text.find_first_of(",\n", number) - number, std::to_string(value));
    std::ofstream{file} << text;
}

} // namespace

DemoProject::DemoProject()
{
    std::filesystem::copy(DEMO_PROJECT, folder(), std::filesystem::copy_options::recursive);
}

std::vector<std::string> DemoProject::languages() const
{
    std::vector<std::string> codes;
    for (const machine::ProjectFile::Language& language :
        machine::ProjectFile::load(folder() / "project.json").languages)
        codes.push_back(language.code);
    return codes;
}

void show(const Start& start, const State& state, const std::function<void(Panel&)>& look)
{
    setNumber(start.project / "project.json", "input", state.inputAllowed ? -1 : 0);
    panel::PanelSettings settings;
    settings.project = start.project;
    settings.temporary = start.project / "temporary";
    std::filesystem::create_directories(settings.temporary);
    settings.simulate = false;
    settings.resolution = start.resolution;
    settings.language = start.language;
    settings.level = state.level;
    settings.zoom = start.zoom;
    try {
        Panel panel{settings};
        panel.variables().write(
            "Ch-1.intern<.aktuelle_maschine>", basic::Variant{state.machine}, machine::Writer::Host);
        if (!start.window.isEmpty()) panel.window().resize(start.window);
        panel.window().show();
        if (!QTest::qWaitForWindowExposed(&panel.window())) throw panel::NotThere{"the window"};
        panel.openServo();
        panel::Operator hands{panel, settleMs};
        bool seen = false;
        state.visit(hands, panel, [&] {
            seen = true;
            look(panel);
        });
        EXPECT_TRUE(seen) << state.name << " was not looked at";
    } catch (const panel::NotThere& missing) {
        ADD_FAILURE() << state.name << ' ' << start.resolution << ' ' << start.language
                      << ": the operator did not find " << missing.what;
    }
}

View takeIn(Panel& panel)
{
    const NameOf name = nameOf(panel);
    return takeIn(
        panel.window().stage(), name, [&name](const QWidget& widget) { return fillOf(widget, name(widget)); },
        isSheet);
}

std::vector<Target> targets(Panel& panel)
{
    QWidget& stage = panel.window().stage();
    const NameOf name = nameOf(panel);
    std::vector<Target> all;
    const auto add = [&](const QWidget& widget) {
        if (widget.isVisibleTo(&stage))
            all.push_back({name(widget), {widget.mapTo(&stage, QPoint{}), widget.size()}});
    };
    for (const QWidget* widget : stage.findChildren<QWidget*>()) {
        const auto* key = dynamic_cast<const panel::TouchKey*>(widget);
        if (key != nullptr && key->isOn()) add(*key);
    }
    if (panel::ControlHost* part = panel.shownPart())
        part->forEach([&](std::string_view control, std::int16_t, panel::Child& child) {
            if (child.enabled()
                && begins(std::string{control}, {"Sollwert", "Schalter", "Zeichnung", "BildIm"}))
                add(child.view());
        });
    return all;
}

bool isInactive(const QWidget& widget)
{
    const auto* key = dynamic_cast<const panel::TouchKey*>(&widget);
    return key != nullptr && !key->isOn();
}

double millimetresPerPixel(Panel& panel)
{
    const QSize size = panel.window().stage().size();
    const double inches = size.width() == 1280 ? 19 : 15;
    return inches * 25.4 / std::hypot(size.width(), size.height());
}

} // namespace servopanel::look
