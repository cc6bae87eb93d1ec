#include "bench_panel.h"

#include "basic/conversions.h"
#include "panel/form/fusszeile.h"
#include "panel/form/header.h"
#include "panel/form/picture_child.h"

#include <QTest>
#include <QTimer>
#include <QWindow>

#include <stdexcept>
#include <utility>

namespace servopanel::bench {

using basic::Variant;

namespace {

class CountedVariables : public platform::ProcessVarAccess {
public:
    CountedVariables(std::shared_ptr<platform::ProcessVarAccess> inner, std::vector<std::string>& reads)
        : inner_{std::move(inner)}
        , reads_{reads}
    {
    }
    Variant ReadValue(std::string_view name) override
    {
        reads_.emplace_back(name);
        return inner_->ReadValue(name);
    }
    void WriteValue(std::string_view name, const Variant& value) override { inner_->WriteValue(name, value); }

private:
    std::shared_ptr<platform::ProcessVarAccess> inner_;
    std::vector<std::string>& reads_;
};

std::string servoVariable(std::string_view family)
{
    std::string name{servoPrefix};
    return name.append(family).append(">");
}

Variant moved(const Variant& value, double by)
{
    std::vector<double> elements;
    for (const Variant& element : value.get<basic::Array>()->elements)
        elements.push_back(basic::toDouble(element) + by);
    return basic::doubles(elements);
}

} // namespace

BenchPanel::BenchPanel(const DemoCopy& copy, Records records)
{
    panel::PanelSettings settings;
    settings.project = copy.project();
    settings.temporary = copy.temporary();
    settings.simulate = false;
    settings.clock = [] { return QDateTime{QDate{2025, 3, 14}, QTime{9, 26, 53}}; };
    if (records.trace) settings.trace = copy.records() / "trace";
    if (records.journal) settings.journal = copy.records();
    settings.wrapVariables = [this](std::shared_ptr<platform::ProcessVarAccess> inner) {
        return std::make_shared<CountedVariables>(std::move(inner), reads_);
    };
    panel_ = std::make_unique<panel::Panel>(std::move(settings));
    hands_ = std::make_unique<panel::Operator>(*panel_, 0);
}

void BenchPanel::open()
{
    panel_->window().show();
    panel_->openServo();
    workUntilIdle();
}

void BenchPanel::stopTicks()
{
    for (QTimer* timer : panel_->window().findChildren<QTimer*>())
        timer->stop();
    // It follows what is shown a moment later.
    panel_->servo()->require<panel::HeaderChild>("Header").bar().refresh();
    workUntilIdle();
}

void BenchPanel::tap(QWidget& target)
{
    QWindow* const window = panel_->window().windowHandle();
    const QPoint at = panel_->window().toWindow(target, target.rect().center());
    QTest::mousePress(window, Qt::LeftButton, {}, at);
    QTest::mouseRelease(window, Qt::LeftButton, {}, at);
    workUntilIdle();
}

QWidget& BenchPanel::menuKey(std::int16_t key)
{
    return hands_->part("ServoMenu").require<panel::PictureChild>("BildIm", key).view();
}

QWidget& BenchPanel::footerKey(int number)
{
    return panel_->shownPart()->require<panel::FußzeileChild>("Fußzeile").bar().key(number);
}

void BenchPanel::tick()
{
    hands_->part("ServoMain").deliver({"Timer"}, "Timer", {});
    workUntilIdle();
}

void BenchPanel::enter(const std::string& number)
{
    hands_->input("SollwertL", 1);
    hands_->type(number);
    hands_->ok();
    workUntilIdle();
}

std::vector<std::string> BenchPanel::takeReads() { return std::exchange(reads_, {}); }

void BenchPanel::changeEveryValue()
{
    isOther_ = !isOther_;
    const double by = isOther_ ? 0.1 : -0.1;
    const auto write = [this](const std::string& name, const Variant& value) {
        panel_->variables().write(name, value, machine::Writer::Machine);
    };
    for (const char* family : {"servo_para_1", "servo_para2_1", "servo_diag_11"})
        write(servoVariable(family), moved(*panel_->variables().find(servoVariable(family)), by));
    write(servoVariable("servo_zeich_1"),
        moved(*panel_->variables().find(servoVariable("servo_zeich_1")), isOther_ ? 1010001 : -1010001));
    write(servoVariable("servo_schalt_1"), Variant{static_cast<std::int16_t>(isOther_ ? 10 : 5)});
}

bool BenchPanel::shows(std::string_view className)
{
    panel::ControlHost* const part = panel_->shownPart();
    return part != nullptr && part->className() == className && paintings_.hasPainted(part->view());
}

} // namespace servopanel::bench
