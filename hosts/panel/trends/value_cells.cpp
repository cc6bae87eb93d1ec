#include "panel/trends/value_cells.h"

#include "panel/form/label.h"
#include "panel/form/vws_index.h"
#include "panel/form/vws_var.h"

namespace servopanel::panel {

namespace {

constexpr int firstValue = 101; // element 0 of the array
constexpr int lastLine = 120; // single values with caption and unit
constexpr int firstCell = 121; // a table of four columns
constexpr int lastCell = 140;
constexpr int tableRows = 5; // the first of them heads its column
// Fingers are larger than lines of text; what lies between two lines belongs to the nearer one.
constexpr int around = 3; // pixels

QRect seen(ControlHost& page, std::string_view name, int index)
{
    Child* child = page.find(name, static_cast<std::int16_t>(index));
    return child != nullptr && child->view().isVisible() ? child->view().geometry() : QRect{};
}

QString shownText(ControlHost& page, std::string_view name, int index)
{
    auto* text = dynamic_cast<VWSIndex*>(page.find(name, static_cast<std::int16_t>(index)));
    return text == nullptr ? QString{} : text->shown().trimmed();
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

std::vector<ValueCell> valueCells(ControlHost& page)
{
    std::vector<ValueCell> cells;
    for (int number = firstValue; number <= lastCell; ++number) {
        TextView* view = valueView(page, number);
        if (view == nullptr || !view->isVisible()) continue;
        QRect touch = view->geometry();
        if (number <= lastLine) touch |= seen(page, "Beschriftung", number) | seen(page, "Einheit", number);
        cells.push_back(
            {static_cast<std::size_t>(number - firstValue), view, touch.adjusted(0, -around, 0, around)});
    }
    return cells;
}

ValueWords valueWords(ControlHost& page, std::size_t column)
{
    const int number = firstValue + static_cast<int>(column);
    if (number <= lastLine)
        return {shownText(page, "Beschriftung", number), shownText(page, "Einheit", number)};
    const int tableColumn = (number - firstCell) / tableRows;
    const int row = (number - firstCell) % tableRows;
    // What tells cells apart comes first: the head of the column and the row below it.
    TextView* head = valueView(page, firstCell + tableColumn * tableRows);
    const QString title = shownText(page, "Beschriftung", firstCell);
    const QString place = head == nullptr ? QString::number(tableColumn + 1) : head->text();
    return {place + u'/' + QString::number(row) + QStringLiteral(" – ") + title, {}};
}

} // namespace servopanel::panel
