#include "panel/tour/tour.h"

#include "basic/conversions.h"
#include "machine/split_variables.h"
#include "panel/form/scroll_bar.h"
#include "panel/pictures/picture_file.h"
#include "panel/runtime/panel_variables.h"
#include "panel/widgets/message_sheet.h"
#include "platform/ids.h"
#include "recording/trace/value_text.h"

#include <QImage>
#include <QTest>

#include <cmath>
#include <cstdio>

namespace servopanel::panel {

namespace {

std::string twoDigits(int number)
{
    std::string digits = basic::decimal(std::int32_t{number});
    if (number < 10) digits.insert(digits.begin(), '0');
    return digits;
}

// A limit may be an empty text, and any value one of the machine that is no number.
std::optional<double> number(const basic::Variant& value)
{
    try {
        return basic::toDouble(value);
    } catch (const basic::Error&) {
        return {};
    }
}

} // namespace

Tour::Tour(Panel& panel, std::filesystem::path folder, Pace pace)
    : panel_{panel}
    , operator_{panel, pace.settle}
    , folder_{std::move(folder)}
    , pace_{pace}
{
    std::error_code ignored;
    std::filesystem::create_directories(folder_, ignored);
    constexpr int lookEveryMs = 50;
    QObject::connect(&messages_, &QTimer::timeout, &messages_, [this] { readMessage(); });
    messages_.start(lookEveryMs);
    panel_.setWrittenHandler([this](std::string_view name, const basic::Variant& value) {
        if (machine::SplitVariables::isOfMachine(name))
            say("    " + std::string{name} + " = " + recording::valueText(value, {}));
    });
}

void Tour::say(const std::string& line)
{
    std::fputs((line + "\n").c_str(), stdout);
    std::fflush(stdout);
}

void Tour::leaveOut(const std::string& what) { say("   left out: " + what); }

// Zoomed, the window shows what the operator sees.
QImage Tour::picture()
{
    PanelWindow& window = panel_.window();
    return (window.size() == window.stage().size() ? window.stage().grab() : window.grab()).toImage();
}

void Tour::save(const std::string& name)
{
    const std::filesystem::path file = folder_ / (twoDigits(number_) + "-" + name + ".png");
    if (!saveImage(picture(), file, "PNG")) throw NotThere{"a place for the picture '" + file.string() + "'"};
}

void Tour::step(const std::string& name, const std::function<void()>& action)
{
    ++number_;
    say(twoDigits(number_) + " " + name);
    if (action) action();
    operator_.wait(pace_.look);
    save(name);
}

// A message waits for its reader, and everything else with it.
void Tour::readMessage()
{
    for (QObject* each : panel_.window().stage().children()) {
        auto* message = dynamic_cast<MessageSheet*>(each);
        if (message == nullptr || !message->isVisible()) continue;
        messages_.stop();
        ++number_;
        say(twoDigits(number_) + " message: " + message->text().toStdString());
        const std::filesystem::path file = folder_ / (twoDigits(number_) + "-message.png");
        if (!saveImage(picture(), file, "PNG"))
            std::fprintf(stderr, "servo-panel: the picture '%s' cannot be saved\n", file.c_str());
        QTest::mouseClick(&message->okKey(), Qt::LeftButton);
        messages_.start();
        return;
    }
}

int Tour::play()
{
    try {
        if (!QTest::qWaitForWindowExposed(&panel_.window())) throw NotThere{"the window"};
        menu();
        diagnosis();
        trend();
        setpoints();
        switchAndDrawing();
        neighbours();
        languages();
        definition();
        leave();
    } catch (const NotThere& missing) {
        std::fprintf(
            stderr, "servo-panel: step %d of the tour did not find %s\n", number_, missing.what.c_str());
        return 1;
    } catch (const basic::Error& error) {
        std::fprintf(stderr, "servo-panel: step %d of the tour: %s\n", number_, error.description.c_str());
        return 1;
    }
    return 0;
}

void Tour::menu()
{
    // The panel may come up with the page of the servo that was shown last.
    operator_.goToMenu();
    if (operator_.isOnOtherScreen()) {
        hasMenu_ = false;
        leaveOut("the menu, this project has none");
        step("parameter-page", [&] { operator_.backFromOtherScreen(); });
        return;
    }
    step("menu");
    ControlHost& menu = operator_.part("ServoMenu");
    ScrollView& scroll = menu.require<ScrollBarChild>("ScrollBar").scroll();
    if (scroll.last() > 1) {
        step("menu-scrolled", [&] { operator_.scrollDown(); });
        step("menu-back", [&] { operator_.scrollUp(); });
    }
    // The second servo has neighbours on both sides.
    QWidget& second = menu.require<PictureChild>("BildIm", 2).view();
    QWidget& key = second.isVisible() ? second : menu.require<PictureChild>("BildIm", 1).view();
    step("menu-key-down", [&] { operator_.press(key, key.rect().center()); });
    const QPoint place = panel_.window().toWindow(key, key.rect().center());
    step("parameter-page", [&] { operator_.release(panel_.window(), place); });
}

void Tour::diagnosis()
{
    step("diagnosis-1", [&] { operator_.footerKey(10); });
    if (operator_.isKeyOn(8)) step("diagnosis-2", [&] { operator_.footerKey(8); });
    step("parameters-again", [&] { operator_.footerKey(10); });
}

// The plot lies over the other half of the page, so all values are from the half with the first of them.
std::vector<int> Tour::valuesWithTrend()
{
    constexpr std::size_t most = 3;
    constexpr int firstValue = 101;
    constexpr std::size_t firstOfTable = 20;
    std::vector<int> numbers;
    const std::vector<ValueCell> offered = panel_.trends().offered();
    for (const ValueCell& cell : offered)
        if (numbers.size() < most && (cell.column < firstOfTable) == (offered.front().column < firstOfTable))
            numbers.push_back(firstValue + static_cast<int>(cell.column));
    return numbers;
}

void Tour::trend()
{
    step("diagnosis-again", [&] { operator_.footerKey(10); });
    const std::vector<int> numbers = valuesWithTrend();
    if (numbers.empty()) {
        leaveOut("trends, no value of this page has one");
        step("parameters-without-trend", [&] { operator_.footerKey(10); });
        return;
    }
    TrendSheet& sheet = panel_.trends().sheet();
    step("trend", [&] {
        for (const int number : numbers)
            operator_.actualValue(number);
        operator_.wait(pace_.curve);
    });
    step("trend-frozen-and-read", [&] {
        operator_.tap(sheet.freezeKey());
        const QRect curves = sheet.plot().area();
        const QPoint place{curves.right() - curves.width() / 40, curves.center().y()};
        operator_.press(sheet.plot(), place);
        operator_.release(sheet.plot(), place);
    });
    step("trend-large", [&] { operator_.tap(sheet.enlargeKey()); });
    step("trend-closed", [&] { operator_.tap(sheet.closeKey()); });
    step("parameters-after-trend", [&] { operator_.footerKey(10); });
}

std::optional<Tour::Input> Tour::freeSetpoint(int which)
{
    namespace ids = platform::ids::VWSVarIn;
    int found = 0;
    for (std::int16_t index = 1; index <= 20; ++index) {
        const std::string name = index <= 10 ? "SollwertL" : "SollwertR";
        if (!operator_.isFree(name, index)) continue;
        Child& input = *operator_.part("ServoMain").find(name, index);
        const std::optional<double> value = number(input.get(ids::Wert, {}));
        const std::optional<double> lower = number(input.get(ids::Untergrenze, {}));
        const std::optional<double> upper = number(input.get(ids::Obergrenze, {}));
        if (!value || !lower || !upper || *upper - *lower < 2 || ++found < which) continue;
        // Half way to the farther limit, with one decimal.
        const double limit = *upper - *value > *value - *lower ? *upper : *lower;
        const double next = std::round(5 * (*value + limit)) / 10;
        return Input{name, index, basic::decimal(next), basic::decimal(std::floor(*upper) + 1)};
    }
    return {};
}

void Tour::setpoints()
{
    const std::optional<Input> first = freeSetpoint(1);
    if (!first) return leaveOut("setpoints, none can be changed by 2 or more");
    step("mask", [&] { operator_.input(first->name, first->index); });
    step("mask-refuses", [&] {
        operator_.type(first->tooLarge);
        operator_.ok();
    });
    step("setpoint-changed", [&] {
        operator_.clear();
        operator_.type(first->value);
        operator_.ok();
    });
    step("setpoint-written", [&] { operator_.footerKey(10); });

    std::optional<Input> second = freeSetpoint(2);
    if (!second) second = freeSetpoint(1);
    if (!second) return;
    step("another-setpoint-changed", [&] {
        operator_.input(second->name, second->index);
        operator_.type(second->value);
        operator_.ok();
    });
    step("change-discarded", [&] { operator_.footerKey(11); });
    step("mask-left", [&] {
        operator_.input(second->name, second->index);
        operator_.type("9");
        operator_.cancel();
    });
}

void Tour::switchAndDrawing()
{
    for (std::int16_t index = 31; index <= 34; ++index) {
        const std::string name = index <= 32 ? "SchalterL" : "SchalterR";
        if (!operator_.isFree(name, index)) continue;
        step("switch-toggled", [&] { operator_.input(name, index); });
        step("switch-written", [&] { operator_.footerKey(10); });
        break;
    }
    if (!operator_.isFree("ZeichnungL", 43)) return;
    step("drawing-number-mask", [&] { operator_.input("ZeichnungL", 43); });
    step("drawing-number-changed", [&] {
        operator_.type("7");
        operator_.ok();
    });
    step("drawing-number-written", [&] { operator_.footerKey(10); });
}

void Tour::neighbours()
{
    if (!operator_.isKeyOn(5) && !operator_.isKeyOn(6))
        return leaveOut("neighbours, the machine has one servo");
    if (operator_.isKeyOn(6)) step("next-servo", [&] { operator_.footerKey(6); });
    if (operator_.isKeyOn(6)) {
        step("next-servo-again", [&] { operator_.footerKey(6); });
        diagnosis();
    }
    step("previous-servo", [&] { operator_.footerKey(5); });
}

void Tour::languages()
{
    const int before = panel_.language();
    for (const HeaderLanguage& language : static_cast<HeaderSource&>(panel_).languages())
        if (language.number != before) {
            step("other-language", [&] { operator_.language(language.number); });
            break;
        }
    if (panel_.language() != before) step("first-language", [&] { operator_.language(before); });
}

void Tour::definition()
{
    constexpr std::int16_t service = 5;
    const basic::Variant* level = panel_.variables().find(levelVariable);
    if (level == nullptr || basic::toInt16(*level) != service) return;
    const std::optional<Input> first = freeSetpoint(1);
    if (!first || !operator_.isKeyOn(4)) return leaveOut("definitions, none can be edited");
    step("second-input-mode", [&] { operator_.footerKey(4); });
    step("definition-editor", [&] { operator_.input(first->name, first->index); });
    step("definition-refused", [&] {
        operator_.editorType("999999");
        operator_.editorOk();
    });
    step("definition-left", [&] { operator_.editorCancel(); });
    step("definition-confirmed", [&] {
        operator_.input(first->name, first->index);
        operator_.editorOk();
    });
    step("second-input-mode-left", [&] { operator_.footerKey(4); });
}

void Tour::leave()
{
    if (hasMenu_) step("menu-at-the-end", [&] { operator_.footerKey(11); });
    step("other-screen", [&] { operator_.footerKey(11); });
    step("back", [&] { operator_.backFromOtherScreen(); });
}

} // namespace servopanel::panel
