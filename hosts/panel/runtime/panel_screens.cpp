// The screen that is shown, what lies on it, and the keys that lead on.
#include "basic/conversions.h"
#include "machine/screen_rows.h"
#include "panel/form/fusszeile.h"
#include "panel/look/qt_text.h"
#include "panel/look/touch_size.h"
#include "panel/runtime/panel.h"
#include "panel/widgets/message_sheet.h"
#include "panel/window/other_screen.h"
#include "platform/ids.h"

#include <algorithm>

namespace servopanel::panel {

using basic::Variant;
namespace names = platform::names;

namespace {

bool isVisible(Child& child) { return basic::toBoolean(child.get(names::Visible, {})); }

// Whether the mask or the definition editor is open.
bool isEntering(ControlHost& part)
{
    for (const std::string_view name : {"Eingabemaske", "IniEingabe"}) {
        Child* mask = part.find(name);
        if (mask != nullptr && isVisible(*mask)) return true;
    }
    return false;
}

} // namespace

void Panel::openServo()
{
    closeScreen();
    watched_->startDisplays();
    if (connection_) showMachine();
    operation("create");
    servo_ = std::make_unique<ControlHost>("Servo", &window_.stage(), forms_);
    servo_->put(names::Visible, {}, Variant{true});
    window_.showScreen(servo_->view());
    if (auto* header = dynamic_cast<HeaderChild*>(servo_->find("Header")))
        header->bar().setArrangedHandler([this] { placeErrorKey(); });
    placeErrorKey();
    if (auto* page = dynamic_cast<ControlHost*>(servo_->find("ServoMain"))) trends_.watch(*page);
    operation("show");
    servo_->show();
    menuLanguage_.reset();
    followMenuLanguage("Show");
    // What was read while the control was being made found no displays yet.
    showValueStates();
    noteLowRows();
    if (settings_.outside.servoOpened) settings_.outside.servoOpened(*servo_);
}

void Panel::openScreen(std::int16_t number)
{
    closeScreen();
    if (settings_.outside.openScreen) {
        settings_.outside.openScreen(number);
        return;
    }
    otherScreen_ = number;
    const std::string* const title = languages_.find("Panel.Screen." + basic::decimal(std::int32_t{number}));
    const QString numbered = word(PanelText::Screen) + u' ' + QString::number(number);
    bool isKnown = false;
    for (const machine::ProjectFile::Screen& screen : file_.screens)
        isKnown = isKnown || screen.number == number;
    if (!isKnown) note((word(PanelText::NoScreen) + u' ' + QString::number(number)).toStdString());
    auto* screen = new OtherScreen{
        &window_.stage(), title == nullptr ? numbered : toQt(*title), numbered, word(PanelText::Back)};
    screen->backKey().setAction([this] { gate_.later([this] { openServo(); }); });
    window_.showScreen(*screen);
}

void Panel::closeScreen()
{
    otherScreen_ = 0;
    answers_.dismiss();
    window_.showNothing();
    trends_.forget();
    if (!servo_) return;
    operation("terminate");
    servo_->terminate();
    servo_.reset();
}

ControlHost* Panel::shownPart()
{
    if (!servo_) return nullptr;
    for (const std::string_view name : {"ServoMain", "ServoMenu"}) {
        auto* part = dynamic_cast<ControlHost*>(servo_->find(name));
        if (part != nullptr && !part->hasEnded() && isVisible(*part)) return part;
    }
    return nullptr;
}

// In the header where there is one, else where it would be.
void Panel::placeErrorKey()
{
    const QSize stage = window_.stage().size();
    QRect place{
        stage.width() * 60 / 100, stage.height() / 50, stage.width() * 6 / 100, stage.height() * 5 / 100};
    int below = stage.height() / 10;
    if (servo_)
        if (auto* header = dynamic_cast<HeaderChild*>(servo_->find("Header"))) {
            place = header->bar().freePlace();
            below = header->bar().geometry().bottom() + 1;
        }
    errors_.place(place, below);
}

// Below the heading of the servo page, where neither keys nor inputs stand; the lengths are those of 1280 pixels.
void Panel::placeAnswers()
{
    const QSize stage = window_.stage().size();
    const auto across = [&](int length) { return length * stage.width() / 1280; };
    const auto down = [&](int length) { return length * stage.height() / 1024; };
    answers_.setGeometry(across(7), down(152), across(380), down(102));
}

void Panel::noteLowRows()
{
    if (!file_.diagonalInches) return;
    const QWidget& stage = window_.stage();
    const double row = machine::rowPixels(stage.width()) * millimetresPerPixel(stage);
    if (row >= leastTouchMillimetres) return;
    const QString line =
        word(PanelText::LowRows) + u' ' + QString::number(machine::leastDiagonal(row, *file_.diagonalInches));
    const auto& known = errors_.entries();
    const bool isKnown =
        std::any_of(known.begin(), known.end(), [&](const ErrorEntry& entry) { return entry.text == line; });
    if (!isKnown) note(line.toStdString());
}

// An answer goes with a touch, unless that touch asks for all of it.
void Panel::touched(std::optional<QPoint> at)
{
    const QPoint corner = window_.toWindow(answers_, {});
    const QRect place{corner, window_.toWindow(answers_, answers_.rect().bottomRight())};
    if (!at || !answers_.isVisible() || !place.contains(*at)) answers_.touched();
}

// In the list of reports, where every text has room.
void Panel::showAnswerInFull(bool isReported)
{
    if (!isReported) errors_.add(ErrorEntry::Origin::Panel, answers_.text());
    errors_.open();
}

// Whoever reads a message or enters a value is left in peace.
bool Panel::mayShowTrends()
{
    ControlHost* part = shownPart();
    return part != nullptr && !gate_.isClosed() && !isEntering(*part);
}

bool Panel::hasUnfinishedInput() { return gate_.isBusy() || gate_.isClosed() || hasOpenEdit(); }

bool Panel::hasOpenEdit()
{
    ControlHost* part = shownPart();
    return part != nullptr && (isEntering(*part) || hasChange(*part));
}

bool Panel::hasChange(ControlHost& part)
{
    bool changed = false;
    part.forEach(
        [&](std::string_view, std::int16_t, Child& child) { changed = changed || child.isChanged(); });
    return changed;
}

void Panel::endMessage()
{
    for (QObject* each : window_.stage().children())
        if (auto* message = dynamic_cast<MessageSheet*>(each)) message->end();
}

void Panel::pressKey(int number)
{
    if (gate_.isClosed() || takesKey(number)) return;
    if (ControlHost* part = shownPart()) {
        if (auto* footer = dynamic_cast<FußzeileChild*>(part->find("Fußzeile")))
            footer->pressElsewhere(number);
    } else if (otherScreen_ != 0 && number == 11) {
        gate_.later([this] { openServo(); });
    }
}

// The way out closes what lies on the page first.
bool Panel::takesKey(int number)
{
    if (number != 11) return false;
    auto* const header = servo_ ? dynamic_cast<HeaderChild*>(servo_->find("Header")) : nullptr;
    if (errors_.isOpen())
        errors_.close();
    else if (trends_.isOpen())
        trends_.close();
    else
        return header != nullptr && header->bar().closeSheet();
    return true;
}

} // namespace servopanel::panel
