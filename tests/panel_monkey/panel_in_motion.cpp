#include "panel_monkey/panel_in_motion.h"

#include "basic/conversions.h"
#include "panel/form/vws_var.h"
#include "panel/runtime/panel.h"
#include "panel/tour/operator.h"
#include "panel_monkey/by_hand.h"
#include "panel_monkey/fast_clock.h"
#include "platform/ids.h"
#include "portable/temporary_folder.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <sstream>
#include <string>
#include <typeinfo>
#include <vector>

namespace servopanel::monkey {

namespace {

using basic::Variant;

constexpr int tickMs = 500;

// The round of the library alone, and each of its pages in the languages that only a panel has.
std::vector<std::string> roundOnPanel()
{
    std::vector<std::string> round{operatorsRound().begin(), operatorsRound().end()};
    const auto backToTheFirst = std::find(round.begin(), round.end(), "language 1");
    round.insert(backToTheFirst, {"language 3", "key 10", "language 4", "key 10"});
    return round;
}

bool isOfAMachine(std::string_view name) { return name.starts_with("Ch1.") || name.starts_with("Ch2."); }

// The way to the machines, on which every actual value moves with each tick, or nothing comes through.
class MovingValues : public platform::ProcessVarAccess {
public:
    MovingValues(
        std::shared_ptr<platform::ProcessVarAccess> inner, FastMotion::Link link, PanelInMotion::Done& done)
        : inner_{std::move(inner)}
        , link_{link}
        , done_{done}
    {
    }
    Variant ReadValue(std::string_view name) override
    {
        ++done_.reads;
        if (isDead(name)) ++done_.failedReads;
        check(name);
        Variant value = inner_->ReadValue(name);
        if (name.find("_servo_diag_") != std::string_view::npos) move(value);
        return value;
    }
    void WriteValue(std::string_view name, const Variant& value) override
    {
        check(name);
        inner_->WriteValue(name, value);
    }

private:
    bool isDead(std::string_view name) const { return link_ == FastMotion::Link::Dead && isOfAMachine(name); }
    // The report of every second is another one, as of a controller that counts its attempts.
    void check(std::string_view name) const
    {
        if (!isDead(name)) return;
        std::string attempt = std::to_string(100'000'000 + done_.ticks * tickMs / 1000);
        throw basic::Error{5, "Machine", std::string{name} + ": no answer to attempt " + attempt};
    }
    void move(Variant& value) const
    {
        if (value.get<basic::Array>() == nullptr) return;
        const basic::Array before = *value.get<basic::Array>();
        const double by = 1.1 * static_cast<double>(done_.ticks % 9); // seen with any number of decimals
        for (std::size_t i = 0; i < before.elements.size(); ++i)
            if (panel::isNumber(before.elements[i]))
                basic::setElement(
                    value, static_cast<std::int32_t>(i), basic::toDouble(before.elements[i]) + by);
    }

    std::shared_ptr<platform::ProcessVarAccess> inner_;
    FastMotion::Link link_;
    PanelInMotion::Done& done_;
};

class Watch : public QObject {
public:
    Watch(bool keepsFonts, PanelInMotion::Done& done)
        : keepsFonts_{keepsFonts}
        , done_{done}
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

private:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Timer) ++done_.timers;
        if (event->type() == QEvent::Paint) ++done_.paintings;
        return keepsFonts_ && event->type() == QEvent::Timer && isCacheOfFonts(*watched);
    }
    // It gives up by its timer what was not used lately, drawn glyphs among it; it has no name but that of its class.
    static bool isCacheOfFonts(const QObject& object)
    {
        return std::string_view{typeid(object).name()}.find("QFontCache") != std::string_view::npos;
    }

    bool keepsFonts_;

    PanelInMotion::Done& done_;
};

} // namespace

class PanelInMotion::Impl {
public:
    Impl(FastMotion::Link link, Looks looks, Machine machine)
        : looks_{looks}
        , watch_{machine == Machine::Still, done_}
        , panel_{settings(link, machine)}
    {
        panel_.window().show();
        static_cast<void>(QTest::qWaitForWindowExposed(&panel_.window()));
        panel_.openServo();
        start_ = panel_.now();
    }

    void playRound()
    {
        for (std::size_t step = 0; step < round_.size(); ++step) {
            const bool isLong = done_.rounds == 0 && step == firstDiagnosis;
            look(isLong ? looks_.firstAtValues : looks_.ticks);
            goOn(round_[step]);
        }
        // What the last touch has set going comes to its end.
        pass();
        pass();
        ++done_.rounds;
    }

    void turnPages(std::size_t pages)
    {
        goOn("menudown BildIm 1");
        for (std::size_t page = 1; page < pages; ++page)
            goOn(page % 2 == 1 ? "key 6" : "key 5");
        goOn("key 11");
    }

    const Done& done() const { return done_; }
    std::int64_t passed() { return start_.msecsTo(panel_.now()); }

private:
    static constexpr std::size_t firstDiagnosis = 2; // steps of the round before it
    static constexpr std::size_t closerLook = 12; // ticks

    panel::PanelSettings settings(FastMotion::Link link, Machine machine)
    {
        panel::PanelSettings settings;
        settings.project = DEMO_PROJECT;
        settings.temporary = folder_.folder("pictures");
        settings.journal = folder_.folder("journal");
        settings.state = folder_.folder("state");
        settings.simulate = machine == Machine::Simulated;
        settings.wrapVariables = [this, link](std::shared_ptr<platform::ProcessVarAccess> inner) {
            return std::make_shared<MovingValues>(std::move(inner), link, done_);
        };
        return settings;
    }
    // Closer at its end.
    void look(std::size_t ticks)
    {
        const std::size_t close = ticks - std::min(closerLook, ticks / 2);
        for (std::size_t i = 0; i < ticks; ++i) {
            if (i == close) lookCloser();
            if (i + 4 == ticks) lookBack();
            if (i + 2 == ticks) lookUp();
            pass();
        }
    }
    void pass()
    {
        hands_.wait(tickMs);
        ++done_.ticks;
        done_.reports = std::max(done_.reports, panel_.errors().entries().size());
    }
    void lookCloser()
    {
        if (panel_.errors().count() > 0 && isInMenu()) {
            touch(panel_.errors().badge());
            ++done_.lists;
        }
        const std::vector<panel::ValueCell> cells = panel_.trends().offered();
        if (cells.size() < 2 || !cells[0].view->isVisible()) return;
        touch(*cells[0].view);
        if (!panel_.trends().isOpen()) return;
        ++done_.trends;
        touch(*cells[1].view);
        touch(panel_.trends().sheet().spanKey(0));
    }
    void lookBack()
    {
        if (panel_.trends().isOpen()) touch(panel_.trends().sheet().spanKey(2));
    }
    void lookUp()
    {
        if (panel_.errors().isOpen()) touch(panel_.errors().closeKey());
        if (!panel_.trends().isOpen()) return;
        done_.samples = std::max(done_.samples, panel_.trends().sampler().history().rows());
        touch(panel_.trends().sheet().closeKey());
    }
    bool isInMenu()
    {
        const panel::ControlHost* const part = panel_.shownPart();
        return part != nullptr && part->className() == platform::classes::ServoMenu;
    }
    void goOn(const std::string& step)
    {
        std::istringstream commands{step};
        for (std::string command; std::getline(commands, command);)
            attempt([&] { doneByHand(hands_, command); });
    }
    void touch(QWidget& widget)
    {
        attempt([&] { hands_.tap(widget); });
    }
    template <class F>
    void attempt(F action)
    {
        try {
            action();
        } catch (const panel::NotThere&) {
            ++done_.refused;
        }
    }

    const std::vector<std::string> round_ = roundOnPanel();
    Looks looks_;
    Done done_;
    Watch watch_;
    tests::TemporaryFolder folder_;
    FastClock clock_;
    panel::Panel panel_;
    panel::Operator hands_{panel_, 0};
    QDateTime start_;
};

PanelInMotion::PanelInMotion(FastMotion::Link link, Looks looks, Machine machine)
    : impl_{std::make_unique<Impl>(link, looks, machine)}
{
}

PanelInMotion::~PanelInMotion() = default;

void PanelInMotion::playRound() { impl_->playRound(); }

void PanelInMotion::turnPages(std::size_t pages) { impl_->turnPages(pages); }

const PanelInMotion::Done& PanelInMotion::done() const { return impl_->done(); }

std::int64_t PanelInMotion::passed() const { return impl_->passed(); }

} // namespace servopanel::monkey
