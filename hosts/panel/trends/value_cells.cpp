#include "panel/trends/value_cells.h"

#include "panel/form/label.h"
#include "panel/form/vws_index.h"
#include "panel/form/vws_var.h"
#include "panel/look/touch_size.h"

#include <algorithm>
#include <cstdlib>

namespace servopanel::panel {

namespace {

constexpr int firstValue = 101; // element 0 of the array
constexpr int lastLine = 120; // single values with caption and unit
constexpr int firstCell = 121; // a table of four columns
constexpr int lastCell = 140;
constexpr int tableRows = 5; // the first of them heads its column
constexpr int secondTitle = 122; // of the table, over its right half
constexpr int around = 3; // pixels above and below a value that belong to it at least

QRect seen(ControlHost& page, std::string_view name, int index)
{
    Child* child = page.find(name, static_cast<std::int16_t>(index));
    return child != nullptr && child->view().isVisible() ? child->view().geometry() : QRect{};
}

bool isColumnHead(int number) { return number >= firstCell && (number - firstCell) % tableRows == 0; }

// As high as a finger needs it, around the same middle.
QRect forFinger(QRect touch, int least)
{
    const int more = std::max(2 * around, least - touch.height());
    return touch.adjusted(0, -(more + 1) / 2, 0, more / 2);
}

QString shownText(ControlHost& page, std::string_view name, int index)
{
    auto* text = dynamic_cast<VWSIndex*>(page.find(name, static_cast<std::int16_t>(index)));
    return text == nullptr ? QString{} : text->shown().trimmed();
}

QStringList tableTitles(ControlHost& page)
{
    QStringList titles{
        shownText(page, "Beschriftung", firstCell), shownText(page, "Beschriftung", secondTitle)};
    titles.removeAll({});
    return titles;
}

// A place of the page that the servo does not use has no text.
bool isNamed(ControlHost& page, int number, bool hasTable)
{
    return number <= lastLine ? !shownText(page, "Beschriftung", number).isEmpty() : hasTable;
}

TextView* valueView(ControlHost& page, int number)
{
    Child* child =
        page.find(number <= lastLine ? "IstWert" : "IstWertTab", static_cast<std::int16_t>(number));
    return child == nullptr ? nullptr : dynamic_cast<TextView*>(&child->view());
}

} // namespace

QWidget* valueBox(ControlHost& page)
{
    Child* box = page.find("DetailBox");
    return box == nullptr ? nullptr : &box->view();
}

std::vector<ValueCell> valueCellsWithoutTouch(ControlHost& page)
{
    std::vector<ValueCell> cells;
    const bool hasTable = !tableTitles(page).isEmpty();
    for (int number = firstValue; number <= lastCell; ++number) {
        if (isColumnHead(number)) continue;
        TextView* view = valueView(page, number);
        if (view == nullptr || !view->isVisible() || !isNamed(page, number, hasTable)) continue;
        cells.push_back({static_cast<std::size_t>(number - firstValue), view, {}});
    }
    return cells;
}

std::vector<ValueCell> valueCells(ControlHost& page)
{
    std::vector<ValueCell> cells = valueCellsWithoutTouch(page);
    for (ValueCell& cell : cells) {
        const int number = firstValue + static_cast<int>(cell.column);
        QRect touch = cell.view->geometry();
        if (number <= lastLine) touch |= seen(page, "Beschriftung", number) | seen(page, "Einheit", number);
        cell.touch = forFinger(touch, leastTouch(*cell.view));
    }
    return cells;
}

const ValueCell* nearestCell(const std::vector<ValueCell>& cells, QPoint at)
{
    const ValueCell* best = nullptr;
    const auto away = [&](const ValueCell& cell) { return std::abs(cell.touch.center().y() - at.y()); };
    for (const ValueCell& cell : cells)
        if (cell.touch.contains(at) && (best == nullptr || away(cell) < away(*best))) best = &cell;
    return best;
}

ValueWords valueWords(ControlHost& page, std::size_t column)
{
    const int number = firstValue + static_cast<int>(column);
    if (number <= lastLine)
        return {shownText(page, "Beschriftung", number), shownText(page, "Einheit", number), {}};
    const int tableColumn = (number - firstCell) / tableRows;
    const int row = (number - firstCell) % tableRows;
    TextView* head = valueView(page, firstCell + tableColumn * tableRows);
    const QString top = head == nullptr ? QString::number(tableColumn + 1) : head->shownText();
    return {top + QStringLiteral(" / ") + QString::number(row), {},
        tableTitles(page).join(QStringLiteral(" – "))};
}

} // namespace servopanel::panel
