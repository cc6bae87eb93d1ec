// What a refresh of a diagnosis page paints.
#include "servo_page_test.h"

#include <QPaintEvent>
#include <QScreen>

using namespace servopanel;
using basic::Variant;
using panel::TextView;

namespace {

// What was painted since, by widget.
class Paintings : public QObject {
public:
    Paintings() { QCoreApplication::instance()->installEventFilter(this); }

    std::map<const QObject*, QRect> all;

private:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) all[watched] |= static_cast<QPaintEvent*>(event)->rect();
        return false;
    }
};

class RefreshTest : public servopanel::testing::ServoPageTest {
protected:
    RefreshTest()
    {
        hands_->footerKey(10);
        for (QTimer* timer : panel_->window().findChildren<QTimer*>())
            timer->stop();
        panel_->servo()->require<panel::HeaderChild>("Header").bar().refresh();
        refresh();
        refresh();
    }
    void refresh()
    {
        panel_->shownPart()->deliver({"Timer"}, "Timer", {});
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
    }
    void setValue(int number, double value)
    {
        Variant values = *panel_->variables().find(servopanel::testing::actualValues);
        basic::setElement(values, number - 101, value);
        panel_->variables().write(servopanel::testing::actualValues, values, machine::Writer::Machine);
    }
    TextView& value(int number) { return text("IstWert", static_cast<std::int16_t>(number)); }
    // As the screen has it, and as it would be if all of it were painted now.
    QImage onScreen(const TextView& view)
    {
        panel::PanelWindow& window = panel_->window();
        const QPoint at = window.toWindow(view, {0, 0});
        return window.screen()
            ->grabWindow(window.winId(), at.x(), at.y(), view.width(), view.height())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    QImage paintedAnew(const TextView& view)
    {
        panel::PanelWindow& window = panel_->window();
        return window.grab({window.toWindow(view, {0, 0}), view.size()})
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
};

} // namespace

TEST_F(RefreshTest, PaintsNothingWhenNothingHasChanged)
{
    const Paintings paintings;
    refresh();
    refresh();
    EXPECT_TRUE(paintings.all.empty());
}

TEST_F(RefreshTest, PaintsAChangedValueWithinItsFrame)
{
    const Paintings paintings;
    setValue(104, 12.75);
    refresh();
    const auto painted = paintings.all.find(&value(104));
    ASSERT_NE(painted, paintings.all.end());
    EXPECT_TRUE(value(104).rect().adjusted(1, 1, -1, -1).contains(painted->second));
    EXPECT_EQ(paintings.all.count(&value(105)), 0U);
}

TEST_F(RefreshTest, LeavesEachValueAsIfItWerePaintedAnew)
{
    for (const double number : {1.0, -8888888.25, 0.0, 33.5, -1e300, 7.25}) {
        setValue(104, number);
        refresh();
        EXPECT_EQ(onScreen(value(104)), paintedAnew(value(104))) << number;
    }
}

TEST_F(RefreshTest, PaintsTheFrameWithTheSignOfAnOldValue)
{
    panel_->setLink({false, "The controller does not answer"});
    QCoreApplication::processEvents();
    EXPECT_EQ(onScreen(value(104)), paintedAnew(value(104)));
    panel_->setLink({});
    setValue(104, 5.5);
    refresh();
    EXPECT_EQ(onScreen(value(104)), paintedAnew(value(104)));
}
