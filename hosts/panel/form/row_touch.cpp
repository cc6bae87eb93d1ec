#include "panel/form/row_touch.h"

#include "panel/form/control_host.h"
#include "panel/form/ini_eingabe.h"
#include "panel/form/schalter.h"

#include <algorithm>
#include <cstdlib>

namespace servopanel::panel {

namespace {

constexpr std::string_view areaName = "MainBereich";
constexpr double pitchOfHeight = 630.0 / 540.0; // distance of rows to height of their inputs

bool isInput(std::string_view name)
{
    return name.starts_with("Sollwert") || name.starts_with("Schalter") || name.starts_with("Zeichnung");
}

bool isOpen(ControlHost& page)
{
    auto* mask = dynamic_cast<EingabemaskeChild*>(page.find("Eingabemaske"));
    auto* editor = dynamic_cast<IniEingabeChild*>(page.find("IniEingabe"));
    return (mask != nullptr && mask->isOpen()) || (editor != nullptr && editor->isOpen());
}

bool isFree(Child& child)
{
    if (auto* lever = dynamic_cast<SchalterChild*>(&child)) return lever->lever().isFree();
    return child.enabled();
}

// The part of the page that holds the rows.
QWidget* areaOf(ControlHost& page, platform::ChildId touched)
{
    Child* child = page.find(touched.name, touched.index);
    if (child == nullptr || child->viewOrNull() == nullptr) return nullptr;
    if (touched.name == areaName) return &child->view();
    QWidget* const parent = child->view().parentWidget();
    for (const std::int16_t index : {std::int16_t{1}, std::int16_t{2}}) {
        Child* area = page.find(areaName, index);
        if (area != nullptr && area->viewOrNull() == parent) return parent;
    }
    return nullptr;
}

QPoint nearest(const QRect& place, QPoint at)
{
    return {std::clamp(at.x(), place.left(), place.right()), std::clamp(at.y(), place.top(), place.bottom())};
}

} // namespace

std::optional<RowInput> inputInRow(ControlHost& page, platform::ChildId touched, QPoint at)
{
    if (isInput(touched.name) || isOpen(page)) return {};
    QWidget* const area = areaOf(page, touched);
    if (area == nullptr) return {};
    const QPoint place = page.find(touched.name, touched.index)->view().mapTo(area, at);

    std::optional<RowInput> best;
    int leastDistance = 0;
    page.forEach([&](std::string_view name, std::int16_t index, Child& child) {
        if (!isInput(name) || child.viewOrNull() == nullptr || child.view().parentWidget() != area) return;
        const QRect input = child.view().geometry();
        const double reach = input.height() * pitchOfHeight / 2;
        if (std::abs(place.y() - input.center().y()) > reach) return;
        if (!child.view().isVisible() || !isFree(child)) return;
        const QPoint on = nearest(input, place);
        const int distance = (on - place).manhattanLength();
        if (best && distance >= leastDistance) return;
        leastDistance = distance;
        best = RowInput{std::string{name}, index, on - input.topLeft()};
    });
    return best;
}

} // namespace servopanel::panel
