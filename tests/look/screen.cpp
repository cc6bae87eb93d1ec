#include "look/screen.h"

#include "machine/project_file.h"
#include "panel/flaky_variables.h"
#include "panel/form/eingabemaske.h"
#include "panel/form/ini_eingabe.h"
#include "panel/form/row_touch.h"
#include "panel/form/schalter.h"
#include "panel/form/scroll_bar.h"
#include "panel/form/timer_child.h"
#include "panel/widgets/answer_strip.h"
#include "panel/widgets/message_sheet.h"
#include "panel/widgets/scroll_pane.h"
#include "panel/widgets/switch_view.h"
#include "panel/widgets/text_view.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>
#include <QTimer>

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
    if (dynamic_cast<const panel::ScrollPane*>(&widget) != nullptr) return Fill::Scrolled;
    if (dynamic_cast<const panel::TouchKey*>(&widget) != nullptr) return Fill::All;
    if (dynamic_cast<const panel::SwitchView*>(&widget) != nullptr) return Fill::All;
    const auto* label = dynamic_cast<const QLabel*>(&widget);
    return label != nullptr && label->frameShape() != QFrame::NoFrame ? Fill::All : Fill::Nothing;
}

bool isSheet(const QWidget& widget)
{
    return dynamic_cast<const panel::Sheet*>(&widget) != nullptr
        || dynamic_cast<const panel::AnswerStrip*>(&widget) != nullptr
        || dynamic_cast<const panel::MessageSheet*>(&widget) != nullptr;
}

// Meanwhile a touch on the page changes nothing.
bool isEditing(panel::ControlHost& page)
{
    auto* mask = dynamic_cast<panel::EingabemaskeChild*>(page.find("Eingabemaske"));
    auto* editor = dynamic_cast<panel::IniEingabeChild*>(page.find("IniEingabe"));
    return (mask != nullptr && mask->isOpen()) || (editor != nullptr && editor->isOpen());
}

// Where a touch means this input: the input itself, and as much of its row above and below as stands for it.
QRect reach(panel::ControlHost& page, const std::string& name, std::int16_t index, QWidget& input)
{
    QRect place = input.rect();
    QWidget* area = input.parentWidget();
    for (const std::int16_t half : {std::int16_t{1}, std::int16_t{2}}) {
        panel::Child* box = page.find("MainBereich", half);
        if (box == nullptr || &box->view() != area) continue;
        const int middle = input.geometry().center().x();
        const auto means = [&](int y) {
            const auto found = panel::inputInRow(page, {"MainBereich", half}, {middle, y});
            return found && found->name == name && found->index == index;
        };
        while (means(input.y() + place.top() - 1))
            place.setTop(place.top() - 1);
        while (means(input.y() + place.bottom() + 1))
            place.setBottom(place.bottom() + 1);
    }
    return place;
}

// What cannot be read is reported with every refresh, and how many of them come before somebody looks depends on the
// computer.
class NoRefresh : public QObject {
public:
    void of(Panel& panel)
    {
        auto& page = panel.servo()->require<panel::ControlHost>("ServoMain");
        for (QTimer* timer : page.require<panel::TimerChild>("Timer").view().findChildren<QTimer*>())
            timer->installEventFilter(this);
    }
    bool eventFilter(QObject* /*timer*/, QEvent* event) override { return event->type() == QEvent::Timer; }
};

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
    clockOfTheWall() = QDateTime{QDate{2025, 3, 14}, QTime{9, 26, 53}};
    settings.clock = [] { return clockOfTheWall(); };
    std::shared_ptr<servopanel::testing::FlakyVariables> variables;
    settings.wrapVariables = [&](std::shared_ptr<platform::ProcessVarAccess> inner) {
        variables = std::make_shared<servopanel::testing::FlakyVariables>(std::move(inner));
        variables->unreadable.insert(state.unreadable.begin(), state.unreadable.end());
        variables->unwritable.insert(state.unwritable.begin(), state.unwritable.end());
        return variables;
    };
    try {
        Panel panel{settings};
        panel.variables().write(
            "Ch-1.intern<.aktuelle_maschine>", basic::Variant{state.machine}, machine::Writer::Host);
        if (!start.window.isEmpty()) panel.window().resize(start.window);
        panel.window().show();
        if (!QTest::qWaitForWindowExposed(&panel.window())) throw panel::NotThere{"the window"};
        panel.openServo();
        NoRefresh noRefresh;
        if (!state.unreadable.empty()) noRefresh.of(panel);
        panel::Operator hands{panel, settleMs};
        bool seen = false;
        state.visit(hands, panel, [&] {
            seen = true;
            // It follows what is shown a moment later.
            if (panel.servo() != nullptr)
                panel.servo()->require<panel::HeaderChild>("Header").bar().refresh();
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

// How much of a value's touch rectangle is not nearer to another value, around its middle.
QRect ownPart(const std::vector<panel::ValueCell>& cells, const panel::ValueCell& cell)
{
    QRect own = cell.touch;
    const auto means = [&](int y) {
        const panel::ValueCell* const nearest = panel::nearestCell(cells, {own.center().x(), y});
        return nearest != nullptr && nearest->view == cell.view;
    };
    while (own.height() > 0 && !means(own.top()))
        own.setTop(own.top() + 1);
    while (own.height() > 0 && !means(own.bottom()))
        own.setBottom(own.bottom() - 1);
    return own;
}

// Not below the sheet of the trends, which is measured by itself.
std::vector<Target> valueTargets(Panel& panel)
{
    panel::Trends& trends = panel.trends();
    if (trends.isOpen()) return {};
    const NameOf name = nameOf(panel);
    std::vector<Target> all;
    const std::vector<panel::ValueCell> cells = trends.offered();
    for (const panel::ValueCell& cell : cells) {
        if (!cell.view->isVisible()) continue;
        const QRect own = ownPart(cells, cell);
        const QPoint corner = trends.box()->mapTo(&panel.window().stage(), own.topLeft());
        all.push_back({name(*cell.view), {corner, own.size()}});
    }
    return all;
}

std::vector<Target> targets(Panel& panel)
{
    QWidget& stage = panel.window().stage();
    const NameOf name = nameOf(panel);
    std::vector<Target> all;
    const auto add = [&](const QWidget& widget, const QRect& place) {
        if (widget.isVisibleTo(&stage))
            all.push_back({name(widget), {widget.mapTo(&stage, place.topLeft()), place.size()}});
    };
    for (const QWidget* widget : stage.findChildren<QWidget*>()) {
        const auto* key = dynamic_cast<const panel::TouchKey*>(widget);
        if (key != nullptr && key->isOn()) add(*key, key->rect());
    }
    if (panel::ControlHost* part = panel.shownPart())
        part->forEach([&](std::string_view control, std::int16_t index, panel::Child& child) {
            const std::string named{control};
            auto* lever = dynamic_cast<panel::SchalterChild*>(&child);
            if (!child.enabled() || (lever != nullptr && !lever->lever().isFree())) return;
            if (begins(named, {"BildIm"})) add(child.view(), child.view().rect());
            if (!isEditing(*part) && begins(named, {"Sollwert", "Schalter", "Zeichnung"}))
                add(child.view(), reach(*part, named, index, child.view()));
        });
    return all;
}

bool isInactive(const QWidget& widget)
{
    const auto* key = dynamic_cast<const panel::TouchKey*>(&widget);
    return key != nullptr && !key->isOn();
}

} // namespace servopanel::look
