#include "panel/tour/operator.h"

#include "basic/conversions.h"
#include "panel/form/eingabemaske.h"
#include "panel/form/fusszeile.h"
#include "panel/form/header.h"
#include "panel/form/ini_eingabe.h"
#include "panel/form/schalter.h"
#include "panel/form/scroll_bar.h"
#include "panel/window/other_screen.h"
#include "platform/ids.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <QWindow>

namespace servopanel::panel {

namespace {

template <class T>
T& there(T* thing, const std::string& what)
{
    if (thing == nullptr) throw NotThere{what};
    return *thing;
}

} // namespace

void Operator::wait(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, [&loop] { loop.quit(); });
    loop.exec();
}

// An operator sees a screen before he touches it, and a touch that comes earlier is dropped.
void Operator::settle()
{
    constexpr int turns = 5;
    for (int i = 0; i < turns; ++i)
        QCoreApplication::processEvents();
}

QWindow* Operator::window() { return panel_.window().window()->windowHandle(); }

QPoint Operator::place(const QWidget& target, QPoint at)
{
    const PanelWindow& panel = panel_.window();
    return panel.mapTo(panel.window(), panel.toWindow(target, at));
}

// The window system tells only the window where the finger is; which widget gets it is the panel's matter.
void Operator::press(QWidget& target, QPoint at)
{
    settle();
    if (!target.isVisible()) throw NotThere{"what is to be touched"};
    QTest::mousePress(window(), Qt::LeftButton, {}, place(target, at));
    wait(settleMs_);
}

void Operator::moveTo(QWidget& target, QPoint at)
{
    QTest::mouseMove(window(), place(target, at));
    wait(settleMs_);
}

void Operator::release(QWidget& target, QPoint at)
{
    QTest::mouseRelease(window(), Qt::LeftButton, {}, place(target, at));
    wait(settleMs_);
}

void Operator::tap(QWidget& target)
{
    const QPoint middle = target.rect().center();
    // The place on the window is taken before the press, because the press may hide the target.
    const QPoint touched = place(target, middle);
    press(target, middle);
    QTest::mouseRelease(window(), Qt::LeftButton, {}, touched);
    wait(settleMs_);
}

ControlHost& Operator::part(std::string_view className)
{
    ControlHost* shown = panel_.shownPart();
    if (shown == nullptr || shown->className() != className)
        throw NotThere{className == "ServoMenu" ? "the menu of servos" : "the page of a servo"};
    return *shown;
}

void Operator::footerKey(int number)
{
    ControlHost& shown = there(panel_.shownPart(), "a screen with footer keys");
    TouchKey& key = shown.require<FußzeileChild>("Fußzeile").bar().key(number);
    if (!key.isOn()) throw NotThere{"footer key " + basic::decimal(std::int32_t{number}) + " is off"};
    tap(key);
}

bool Operator::isKeyOn(int number)
{
    ControlHost& shown = there(panel_.shownPart(), "a screen with footer keys");
    return shown.require<FußzeileChild>("Fußzeile").bar().key(number).isOn();
}

void Operator::goToMenu()
{
    constexpr int leave = 11;
    const ControlHost* const shown = panel_.shownPart();
    if (shown != nullptr && shown->className() == "ServoMain" && isKeyOn(leave)) footerKey(leave);
}

void Operator::menuKey(int key)
{
    tap(part("ServoMenu").require<PictureChild>("BildIm", static_cast<std::int16_t>(key)).view());
}

void Operator::scrollDown()
{
    tap(part("ServoMenu").require<ScrollBarChild>("ScrollBar").scroll().downKey());
}

void Operator::scrollUp() { tap(part("ServoMenu").require<ScrollBarChild>("ScrollBar").scroll().upKey()); }

bool Operator::isFree(std::string_view name, std::int16_t index)
{
    Child* child = part("ServoMain").find(name, index);
    if (child == nullptr || !child->view().isVisible() || !child->enabled()) return false;
    if (dynamic_cast<SchalterChild*>(child) == nullptr) return true;
    return basic::toBoolean(child->get(platform::ids::Schalter::Freigabe, {}));
}

void Operator::input(std::string_view name, std::int16_t index)
{
    tap(there(part("ServoMain").find(name, index), std::string{name}).view());
}

void Operator::actualValue(int number)
{
    constexpr int lastLine = 120;
    const std::string name = number <= lastLine ? "IstWert" : "IstWertTab";
    tap(there(part("ServoMain").find(name, static_cast<std::int16_t>(number)), name).view());
}

void Operator::language(int number)
{
    ControlHost& servo = there(panel_.servo(), "the Servo control");
    HeaderBar& bar = servo.require<HeaderChild>("Header").bar();
    if (bar.languagesKey() != nullptr) tap(*bar.languagesKey());
    tap(there(bar.languageKey(number), "the language's key"));
}

void Operator::padType(KeyPad& pad, const std::string& number)
{
    for (const char character : number) {
        const QString label = character == '-' ? QStringLiteral("±") : QString{QLatin1Char{character}};
        tap(there(pad.key(label), "a key for '" + std::string{character} + "'"));
    }
}

void Operator::clear()
{
    tap(there(
        part("ServoMain").require<EingabemaskeChild>("Eingabemaske").mask().pad().key(QStringLiteral("C")),
        "the clear key"));
}

void Operator::type(const std::string& number)
{
    // A sign belongs to the number in front of it, so it comes last.
    const bool negative = !number.empty() && number.front() == '-';
    KeyPad& pad = part("ServoMain").require<EingabemaskeChild>("Eingabemaske").mask().pad();
    padType(pad, negative ? number.substr(1) + "-" : number);
}

void Operator::ok() { tap(part("ServoMain").require<EingabemaskeChild>("Eingabemaske").mask().okKey()); }

void Operator::cancel()
{
    tap(part("ServoMain").require<EingabemaskeChild>("Eingabemaske").mask().cancelKey());
}

void Operator::editorRow(int row)
{
    tap(part("ServoMain")
            .require<IniEingabeChild>("IniEingabe")
            .editor()
            .rowKey(static_cast<DefinitionEditor::Row>(row)));
}

void Operator::editorType(const std::string& number)
{
    padType(part("ServoMain").require<IniEingabeChild>("IniEingabe").editor().pad(), number);
}

void Operator::editorOk() { tap(part("ServoMain").require<IniEingabeChild>("IniEingabe").editor().okKey()); }

void Operator::editorCancel()
{
    tap(part("ServoMain").require<IniEingabeChild>("IniEingabe").editor().cancelKey());
}

OtherScreen* Operator::otherScreen()
{
    for (QObject* each : panel_.window().stage().children()) {
        auto* screen = dynamic_cast<OtherScreen*>(each);
        if (screen != nullptr && screen->isVisible()) return screen;
    }
    return nullptr;
}

bool Operator::isOnOtherScreen() { return otherScreen() != nullptr; }

void Operator::backFromOtherScreen() { tap(there(otherScreen(), "another screen").backKey()); }

} // namespace servopanel::panel
