#include "panel_monkey/panel_run.h"

#include "basic/conversions.h"
#include "monkey/parameters.h"
#include "monkey/project.h"
#include "monkey/rules.h"
#include "panel/flaky_variables.h"
#include "panel/form/eingabemaske.h"
#include "panel/form/fusszeile.h"
#include "panel/form/header.h"
#include "panel/form/ini_eingabe.h"
#include "panel/form/schalter.h"
#include "panel/form/timer_child.h"
#include "panel/test_project.h"
#include "panel/widgets/switch_view.h"
#include "panel/widgets/text_view.h"
#include "panel_monkey/by_hand.h"
#include "panel_monkey/random_hands.h"
#include "panel_monkey/words.h"
#include "platform/ids.h"
#include "recording/scenario/line_reader.h"
#include "recording/trace/path_names.h"
#include "recording/trace/value_text.h"

#include <QEvent>
#include <QKeySequence>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

namespace servopanel::monkey {

namespace {

using basic::Variant;
using panel::ControlHost;
using panel::NotThere;
using panel::Operator;
using panel::Panel;
using platform::ChildId;

constexpr int confirmKey = 10;
constexpr int leaveKey = 11;
constexpr int firstResolution = 1280;
constexpr std::string_view resolutionVariable = "parameter<.aufloesung>";
constexpr std::string_view rubbish = "[\x01\xFF=,;1e999\r\n=TRUE";

std::string diskName(const ProjectFile& file)
{
    std::string name = file.name;
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

// The lines that a command puts into a file.
std::string contentOf(const std::string& command)
{
    const std::size_t first = command.find('\n') + 1;
    return command.substr(first, command.rfind("end") - first);
}

std::string_view withoutEnd(std::string_view line)
{
    return line.ends_with('\n') ? line.substr(0, line.size() - 1) : line;
}

void replace(std::string& text, std::string_view what, std::string_view by)
{
    const std::size_t at = text.find(what);
    if (at != std::string::npos) text.replace(at, what.size(), by);
}

// The standard project with two languages more, one of them from right to left.
class Project : public testing::TestProject {
public:
    Project()
        : TestProject{monkeyProject()}
    {
        addEmptyTexts();
        std::string json = content("project.json");
        replace(json, R"({"number": 1, "code": "en", "name": "English"})",
            R"({"number": 1, "code": "en", "name": "English"}, {"number": 2, "code": "de", "name": "Deutsch"},
               {"number": 3, "code": "ar", "name": "Arabic"})");
        write("project.json", json);
        write("Texts/de.txt", content("Texts/en.txt"));
        write("Texts/ar.txt", content("Texts/en.txt"));
    }

    void lose(const std::string& name)
    {
        if (!std::filesystem::exists(file(name))) throw NotThere{name};
        if (away_.count(name) == 0) away_[name] = content(name);
        remove(name);
    }
    void spoil(const std::string& name, std::string_view content)
    {
        lose(name);
        write(name, std::string{content});
    }
    void bring(const std::string& name)
    {
        const auto kept = away_.find(name);
        if (kept == away_.end()) throw NotThere{name + " among what is away"};
        write(name, kept->second);
        away_.erase(kept);
    }

private:
    std::string content(const std::string& name) const
    {
        std::ifstream in{file(name), std::ios::binary};
        return {std::istreambuf_iterator<char>{in}, {}};
    }

    std::map<std::string, std::string> away_; // what stood in them
};

// What is done for such a command. One that a scenario has as well is a comment there when the library got something
// else of it, and is the same command still: a rule names it alike.
std::string operationOf(const std::string& scenario)
{
    constexpr std::array<std::string_view, 12> ofScreen{
        "at", "drag", "press", "back", "open", "restart", "link", "lose", "spoil", "bring", "forge", "probe"};
    const std::string command = ofThePanel(scenario);
    if (!command.starts_with(panelOnly)) return command;
    const std::string done = command.substr(panelOnly.size());
    const bool isOfScreen = std::find(ofScreen.begin(), ofScreen.end(), Words{done}.word()) != ofScreen.end();
    return isOfScreen ? command : done;
}

// Takes the touches of a widget away.
class NoTouches : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        return event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease;
    }
};

// Whether the widget is told to show its value as changed.
bool isMarked(panel::Child& child)
{
    if (auto* const lever = dynamic_cast<panel::SwitchView*>(child.viewOrNull()))
        return lever->marks().changed;
    auto* const text = dynamic_cast<panel::TextView*>(child.viewOrNull());
    return text != nullptr && text->marks().changed;
}

// A panel under the hands of the operator, and what the rules see of it.
class PanelRun : public Screen {
public:
    explicit PanelRun(int resolution) { start(resolution); }

    // The panel as a program is started, with what is on its disk.
    void start(int resolution)
    {
        panel::PanelSettings settings = project_.settings();
        settings.resolution = resolution;
        settings.trace = project_.file("panel.trace");
        settings.wrapVariables = [this](std::shared_ptr<platform::ProcessVarAccess> inner) {
            flaky_ = std::make_shared<testing::FlakyVariables>(std::move(inner));
            return flaky_;
        };
        panel_ = std::make_unique<Panel>(settings);
        reader_ = std::make_unique<testing::MessageReader>(*panel_);
        panel_->variables().addListener([this](const machine::VariableStore::Write& write) { note(write); });
        panel_->window().show();
        static_cast<void>(QTest::qWaitForWindowExposed(&panel_->window()));
        hands_ = std::make_unique<Operator>(*panel_, 0);
        trace_.close();
        trace_.clear();
        trace_.open(project_.file("panel.trace"), std::ios::binary);
        Tally done = rules_ ? rules_->tally() : Tally{};
        rules_.emplace(*this);
        rules_->tally() = std::move(done);
        rules_->before();
        offersConfirm_ = false;
        resolution_ = resolution;
    }

    // Everything that crossed the library's border in the last command.
    const std::string& lastTrace() const { return lastTrace_; }
    // The last command with what the library got of it.
    std::string lastScenario() const { return asScenario(lastCommand_, came_); }
    // What the command broke.
    std::optional<std::string> play(const std::string& scenario)
    {
        const std::string command = operationOf(scenario);
        lastCommand_ = command;
        noteMask(command);
        rules_->before();
        written_.clear();
        lastTrace_.clear();
        came_.clear();
        mayConfirm_ = false;
        mustCome_.clear();
        std::optional<std::string> wrong;
        std::string_view counted = Tally::played;
        const auto exception = exceptionOf([&] {
            try {
                wrong = perform(command);
            } catch (const NotThere&) {
                counted = Tally::skipped; // nothing that could be done now
            } catch (const recording::Malformed&) {
                counted = Tally::skipped;
            }
        });
        if (exception) return "'" + command + "': " + *exception;
        keepTimerStill();
        listen();
        rules_->tally().add(counted);
        noteConfirmKey(lastTrace_);
        if (const auto broken = rules_->broken(lastTrace_)) return broken;
        if (!wrong) wrong = brokenOnScreen(command, lastTrace_);
        return wrong;
    }

    // Screen
    const Variant* variable(std::string_view name) override { return panel_->variables().find(name); }
    bool isShown() override { return panel_->servo() != nullptr; }
    bool isSeen(std::string_view part) override
    {
        panel::Child* const control = panel_->servo()->find(part);
        return control != nullptr && control->viewOrNull() != nullptr && control->view().isVisible();
    }
    std::set<std::int16_t> marked() override
    {
        std::set<std::int16_t> found;
        page()->forEach([&](std::string_view name, std::int16_t index, panel::Child& child) {
            if (isMarked(child) && !isSwitch(name)) found.insert(index);
        });
        return found;
    }
    bool offersConfirm() override { return offersConfirm_; }
    bool isConfirmOn() override
    {
        auto& footer = page()->require<panel::FußzeileChild>("Fußzeile");
        return footer.enabled() && footer.bar().key(confirmKey).isOn();
    }
    bool isInputOpen() override
    {
        return page()->require<panel::EingabemaskeChild>("Eingabemaske").isOpen()
            || page()->require<panel::IniEingabeChild>("IniEingabe").isOpen();
    }
    bool takesEveryNumber() override { return takesEveryNumber_; }
    const Tally& tally() const { return rules_->tally(); }

private:
    std::optional<std::string> perform(const std::string& command);
    void doAsScenario(const std::string& command);
    void doToScreen(const std::string& command);
    void restart(int resolution);
    void forge(const std::string& what);
    void machine(std::string_view rest);
    void fail(Words words);
    void loss(const std::string& command);
    void tellLoss(const std::string& verb, const std::string& name);
    void touch(const std::vector<QPoint>& places);
    void press(const std::string& key);
    void tick();
    std::optional<std::string> probe();
    void closeWhatIsOpen();
    void noteMask(const std::string& command);
    std::string lineOfTouch(const std::string& command);
    bool isSheetOpen();
    bool isInReach(QWidget& target);
    std::optional<std::string> brokenSwitch();
    std::optional<std::string> brokenOnScreen(const std::string& command, const std::string& trace);

    void open()
    {
        if (panel_->servo() != nullptr) throw NotThere{"a place for the servo screen, which is open"};
        panel_->openServo();
        keepTimerStill();
    }
    ControlHost* page()
    {
        return panel_->servo() == nullptr ? nullptr
                                          : dynamic_cast<ControlHost*>(panel_->servo()->find("ServoMain"));
    }
    panel::TimerChild* timer()
    {
        return page() == nullptr ? nullptr : dynamic_cast<panel::TimerChild*>(page()->find("Timer"));
    }
    // Ticks come by command alone, so that a seed does the same on a slow computer.
    void keepTimerStill()
    {
        constexpr std::int32_t anHour = 3'600'000;
        if (panel::TimerChild* const ticking = timer())
            ticking->put(platform::named("Interval"), {}, Variant{anHour});
    }
    static bool isSwitch(std::string_view name) { return name.starts_with("Schalter"); }
    // Hears what the panel has written into its trace since the last time.
    void listen()
    {
        constexpr std::string_view operation = "> ";
        trace_.clear();
        for (std::string line; std::getline(trace_, line);) {
            lastTrace_.append(line).append("\n");
            if (line.starts_with(operation)) tell(std::string_view{line}.substr(operation.size()));
        }
    }
    // A command of a scenario that the library gets by what is done to the panel.
    void tell(std::string_view command)
    {
        came_.append(command);
        if (!command.ends_with('\n')) came_.append("\n");
    }
    void note(const machine::VariableStore::Write& write)
    {
        if (write.writer == machine::Writer::Machine) return;
        written_.emplace(write.name);
        if (write.writer != machine::Writer::Host) return;
        listen();
        tellValue(write.name, write.value);
    }
    void tellValue(std::string_view name, const Variant& value)
    {
        std::string setting{"var "};
        setting.append(name).append(" = ");
        tell(setting.append(recording::valueText(value, recording::PathNames{})));
    }
    void noteConfirmKey(const std::string& trace);
    bool isOnConfirmKey(QPoint place);

    Project project_;
    std::shared_ptr<testing::FlakyVariables> flaky_;
    std::unique_ptr<Panel> panel_;
    std::unique_ptr<testing::MessageReader> reader_;
    std::unique_ptr<Operator> hands_;
    int resolution_ = firstResolution;
    std::ifstream trace_;
    std::string lastTrace_;
    std::string lastCommand_;
    std::string came_; // what the library got of it, as lines of a scenario
    std::optional<Rules> rules_;
    std::set<std::string> written_; // by the library or the panel in this command
    bool mayConfirm_ = false; // the operator pressed the confirm key in this command
    bool offersConfirm_ = false; // the picture of that key says so
    bool beganOld_ = false; // the mask that is open, with a number that may not be the machine's
    bool takesEveryNumber_ = false; // the mask in this command
    std::string mustCome_; // the beginning of what the library gets of this command
};

std::optional<std::string> PanelRun::perform(const std::string& command)
{
    if (!command.starts_with(panelOnly)) {
        doAsScenario(command);
        return std::nullopt;
    }
    const std::string done = command.substr(panelOnly.size());
    if (done == "probe") return probe();
    doToScreen(done);
    return std::nullopt;
}

// What a scenario has as well, by the hands of the operator.
void PanelRun::doAsScenario(const std::string& command)
{
    Words words{command};
    const std::string verb = words.word();
    mayConfirm_ = verb == "key" && words.whole() == confirmKey;
    mustCome_ = lineOfTouch(command);
    if (doneByHand(*hands_, command)) return;
    if (verb == "timer") {
        tick();
    } else if (verb == "terminate") {
        if (panel_->servo() == nullptr) throw NotThere{"the servo screen"};
        panel_->closeScreen();
    } else if (verb == "create" || verb == "show") {
        open();
    } else if (verb == "var") {
        machine(std::string_view{command}.substr(4));
    } else if (verb == "fail") {
        fail(std::move(words));
    } else if (verb == "lose" || verb == "file" || verb == "picture" || verb == "db") {
        loss(command);
    } else {
        throw NotThere{"a panel's way to do '" + command + "'"};
    }
}

// What only a screen and its surroundings have.
void PanelRun::doToScreen(const std::string& command)
{
    Words words{command};
    const std::string verb = words.word();
    const QSize stage = panel_->window().stage().size();
    const auto place = [&] {
        const int x = words.whole();
        const int y = words.whole();
        return QPoint{std::min(x * stage.width() / 1000, stage.width() - 1),
            std::min(y * stage.height() / 1000, stage.height() - 1)};
    };
    if (verb == "at") {
        touch({place()});
    } else if (verb == "drag") {
        const QPoint from = place();
        touch({from, place()});
    } else if (verb == "press") {
        press(words.word());
    } else if (verb == "back") {
        hands_->backFromOtherScreen();
    } else if (verb == "open") {
        open();
    } else if (verb == "restart") {
        restart(words.whole());
    } else if (verb == "link") {
        const bool isGood = words.word() == "good";
        panel_->setLink({isGood, isGood ? "" : "the cable is out"});
    } else if (verb == "lose" || verb == "spoil" || verb == "bring") {
        const std::string name = words.word();
        if (verb == "lose") project_.lose(name);
        if (verb == "spoil") project_.spoil(name, rubbish);
        if (verb == "bring") project_.bring(name);
        tellLoss(verb, name);
    } else if (verb == "forge") {
        forge(words.word());
    }
}

// The panel's program ends and begins again. Its machine is in the same program, and with it all variables begin anew.
void PanelRun::restart(int resolution)
{
    hands_.reset();
    reader_.reset();
    panel_.reset();
    listen();
    start(resolution);
    tell("fail none");
    std::istringstream lines{monkeyProject()};
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("db ")) tell(line);
        if (!line.starts_with("var ")) continue;
        const std::string name = line.substr(4, line.find(" = ") - 4);
        if (const Variant* const value = variable(name)) tellValue(name, *value);
    }
    open();
}

// What a broken panel could do, for tests of the rules.
void PanelRun::forge(const std::string& what)
{
    if (what == "write") {
        const std::int32_t word = 9;
        panel_->variables().write(servoVariable(3, "_servo_schalt_"), Variant{word}, machine::Writer::Host);
    } else if (what == "deaf") {
        auto* const cover = new QWidget{&panel_->window().stage()}; // the stage ends it
        cover->setGeometry(panel_->window().stage().rect());
        cover->show();
        cover->raise();
    } else if (what == "throw") {
        throw std::runtime_error{"no room"};
    } else if (page() == nullptr) {
        throw NotThere{"a page"};
    } else if (what == "numb") {
        auto* const filter = new NoTouches{&panel_->window().stage()};
        page()->require<panel::SchalterChild>("SchalterL", 31).view().installEventFilter(filter);
        page()->find("SollwertL", 1)->view().installEventFilter(filter);
        page()->require<panel::FußzeileChild>("Fußzeile").bar().key(confirmKey).installEventFilter(filter);
    } else if (what == "turn") {
        // As if the library had turned it.
        auto& lever = page()->require<panel::SchalterChild>("SchalterL", 31);
        lever.put(platform::ids::Schalter::Zustand, {},
            Variant{!basic::toBoolean(lever.get(platform::ids::Schalter::Zustand, {}))});
    } else if (what == "settle") {
        page()->require<panel::SchalterChild>("SchalterL", 31).settle();
    } else {
        const Variant key{static_cast<std::int16_t>(std::atoi(what.c_str()))};
        page()->deliver(ChildId{"Fußzeile"}, "TasteClick", {&key, 1});
    }
}

// What the machine's control or another panel changes.
void PanelRun::machine(std::string_view rest)
{
    recording::LineReader line{rest};
    const std::string name = line.word("the name");
    line.sign('=');
    const Variant value = line.value("the value");
    if (name == resolutionVariable) {
        // The screen of a panel stays as it is, each seed has its own.
        if (value != Variant{static_cast<std::int16_t>(resolution_)}) throw NotThere{"another resolution"};
    } else {
        try {
            panel_->variables().write(name, value, machine::Writer::Machine);
        } catch (const basic::Error& error) {
            throw NotThere{error.description}; // no such value for this variable
        }
    }
    std::string setting{"var "};
    tell(setting.append(rest));
}

void PanelRun::fail(Words words)
{
    const std::string what = words.word();
    const std::string name = words.word();
    if (what == "none") {
        flaky_->unreadable.clear();
        flaky_->unwritable.clear();
        tell("fail none");
    } else if (what == "read" || what == "write") {
        // A panel reads for itself as well, and more often: here it stays so until all failures end.
        (what == "read" ? flaky_->unreadable : flaky_->unwritable).insert(name);
        std::string failure{"fail "};
        tell(failure.append(what).append(" ").append(name));
    } else {
        throw NotThere{"a way to have '" + what + "' fail"};
    }
}

// A file goes, comes back as it was, or holds rubbish.
void PanelRun::loss(const std::string& command)
{
    for (const ProjectFile& file : projectFiles()) {
        const std::string name = diskName(file);
        if (command == "lose " + file.name)
            project_.lose(name);
        else if (withoutEnd(command) == withoutEnd(file.bringBack))
            project_.bring(name);
        else if (file.isText && command.starts_with("file " + file.name + "\n"))
            project_.spoil(name, contentOf(command));
        else
            continue;
        tell(command);
        return;
    }
    throw NotThere{"the file of '" + command + "'"};
}

// The same of a file that a replay has as well; a picture that is none it does not have.
void PanelRun::tellLoss(const std::string& verb, const std::string& name)
{
    for (const ProjectFile& file : projectFiles()) {
        if (diskName(file) != name) continue;
        if (verb == "lose") tell("lose " + file.name);
        if (verb == "bring") tell(file.bringBack);
        if (verb != "spoil" || !file.isText) continue;
        std::string command = "file " + file.name;
        tell(command.append("\n").append(rubbish).append("\nend"));
    }
}

bool PanelRun::isOnConfirmKey(QPoint place)
{
    ControlHost* const part = panel_->shownPart();
    if (part == nullptr || part->className() != "ServoMain") return false;
    const panel::TouchKey& key = part->require<panel::FußzeileChild>("Fußzeile").bar().key(confirmKey);
    return QRect{key.mapTo(&panel_->window().stage(), QPoint{}), key.size()}.contains(place);
}

// The finger comes down on the first place and is lifted at the last.
void PanelRun::touch(const std::vector<QPoint>& places)
{
    QWidget& stage = panel_->window().stage();
    mayConfirm_ = std::all_of(places.begin(), places.end(), [&](QPoint at) { return isOnConfirmKey(at); });
    hands_->press(stage, places.front());
    for (std::size_t i = 1; i < places.size(); ++i)
        hands_->moveTo(stage, places[i]);
    hands_->release(stage, places.back());
}

void PanelRun::press(const std::string& key)
{
    mayConfirm_ = key == "F10";
    const Qt::Key code = QKeySequence::fromString(QString::fromStdString(key))[0].key();
    hands_->wait(0);
    QTest::keyClick(panel_->window().windowHandle(), code);
    hands_->wait(0);
}

void PanelRun::tick()
{
    panel::TimerChild* const ticking = timer();
    if (ticking == nullptr || !ticking->isTicking()) throw NotThere{"a timer that is on"};
    page()->deliver(ChildId{"Timer"}, "Timer", {});
}

void PanelRun::closeWhatIsOpen()
{
    if (panel_->errors().isOpen()) hands_->tap(panel_->errors().closeKey());
    if (panel_->trends().isOpen()) hands_->tap(panel_->trends().sheet().closeKey());
    ControlHost* const servo = panel_->servo();
    if (servo == nullptr) return;
    if (auto* const header = dynamic_cast<panel::HeaderChild*>(servo->find("Header")))
        header->bar().closeSheet();
    if (page() == nullptr) return;
    if (page()->require<panel::EingabemaskeChild>("Eingabemaske").isOpen()) hands_->cancel();
    if (page()->require<panel::IniEingabeChild>("IniEingabe").isOpen()) hands_->editorCancel();
}

// Whatever was done before, the panel must do what one of its keys says.
std::optional<std::string> PanelRun::probe()
{
    closeWhatIsOpen();
    if (panel_->otherScreen() != 0) {
        hands_->backFromOtherScreen();
        hands_->wait(0);
        if (panel_->servo() == nullptr) return "the key back leads nowhere";
        return std::nullopt;
    }
    if (panel_->servo() == nullptr) open();
    hands_->wait(0);
    ControlHost* const part = panel_->shownPart();
    if (part == nullptr) throw NotThere{"a page or the menu"}; // which is a rule of its own
    auto& footer = part->require<panel::FußzeileChild>("Fußzeile");
    for (const int number : {leaveKey, 5, 6, 7, 8, 1, 2}) {
        if (!footer.enabled() || !footer.bar().key(number).isOn()) continue;
        listen();
        const std::size_t before = lastTrace_.size();
        hands_->footerKey(number);
        listen();
        if (lastTrace_.find("key " + std::to_string(number) + "\n", before) == std::string::npos)
            return "a touch of key " + std::to_string(number) + " does nothing";
        break;
    }
    return std::nullopt;
}

// Every number that is entered over an old one is a change. A mask that shows it still was left as it was.
void PanelRun::noteMask(const std::string& command)
{
    const bool isOpen =
        page() != nullptr && page()->require<panel::EingabemaskeChild>("Eingabemaske").isOpen();
    const bool showsOld =
        isOpen && page()->require<panel::EingabemaskeChild>("Eingabemaske").mask().showsOld();
    beganOld_ = isOpen && (beganOld_ || showsOld);
    takesEveryNumber_ = beganOld_ && (command.starts_with("mask ") || !showsOld);
}

// What the library gets of a touch on an input or a key that can be touched now; empty where it may get nothing.
std::string PanelRun::lineOfTouch(const std::string& command)
{
    Words words{command};
    const std::string verb = words.word();
    ControlHost* const part = panel_->shownPart();
    if (part == nullptr || (part == page() && isInputOpen())) return {};
    if (verb == "touch" && part == page()) {
        const std::string name = words.word();
        const auto index = static_cast<std::int16_t>(words.whole());
        const bool isFree = hands_->isFree(name, index) && isInReach(part->find(name, index)->view());
        return isFree ? "> touch " : "";
    }
    if ((verb == "key" && part == page()) || (verb == "menukey" && part != page())) {
        const int number = words.whole();
        // The way out closes what lies on the page first.
        if (number == leaveKey && isSheetOpen()) return {};
        panel::TouchKey& key = part->require<panel::FußzeileChild>("Fußzeile").bar().key(number);
        return key.isOn() && isInReach(key) ? "> " + command + "\n" : "";
    }
    return {};
}

// The list of reports, trends, or the list of languages.
bool PanelRun::isSheetOpen()
{
    if (panel_->errors().isOpen() || panel_->trends().isOpen()) return true;
    auto* const header = dynamic_cast<panel::HeaderChild*>(panel_->servo()->find("Header"));
    const QWidget* const languages = header == nullptr ? nullptr : header->bar().languageSheet();
    return languages != nullptr && languages->isVisible();
}

// Whether nothing lies over the middle of it.
bool PanelRun::isInReach(QWidget& target)
{
    QWidget& stage = panel_->window().stage();
    QWidget* const there = stage.childAt(target.mapTo(&stage, target.rect().center()));
    return there != nullptr && (there == &target || target.isAncestorOf(there));
}

void PanelRun::noteConfirmKey(const std::string& trace)
{
    constexpr std::string_view put = "call ServoMain.Fußzeile.0x68030007(10, ";
    std::istringstream lines{trace};
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(put)) offersConfirm_ = line.find("OK.wmf") != std::string::npos;
}

// The panel marks a switch that waits by itself; the library has no colour for it.
std::optional<std::string> PanelRun::brokenSwitch()
{
    std::optional<std::string> wrong;
    if (page() == nullptr || page() != panel_->shownPart()) return wrong;
    page()->forEach([&](std::string_view name, std::int16_t index, panel::Child& child) {
        if (!isSwitch(name)) return;
        const bool waits = rules_->edits().changed().count(index) > 0;
        if (isMarked(child) && !waits)
            wrong = "switch " + std::to_string(index) + " is marked as changed, and nobody turned it";
        if (!isMarked(child) && waits)
            wrong = "switch " + std::to_string(index) + " was turned, and it is not marked";
    });
    return wrong;
}

std::optional<std::string> PanelRun::brokenOnScreen(const std::string& command, const std::string& trace)
{
    if (!mayConfirm_ && trace.find("> key 10\n") != std::string::npos)
        return "'" + command + "' confirms, and no confirm key was touched";
    const bool isRefused = panel_->answers().isDue() && panel_->answers().isRefusal();
    if (!mustCome_.empty() && !isRefused && trace.find(mustCome_) == std::string::npos)
        return "'" + command + "' does not reach the library, and nobody says why";
    const std::size_t touched = trace.find("> touch ");
    if (touched != std::string::npos && command.starts_with("touch ")
        && trace.compare(touched + 2, command.size() + 1, command + "\n") != 0)
        return "'" + command
            + "' reached another input: " + trace.substr(touched, trace.find('\n', touched) - touched);
    if (const auto broken = brokenSwitch()) return broken;
    for (const std::string& name : written_)
        if (servoNameOf(name) && trace.find("write " + name + " = ") == std::string::npos)
            return "'" + name + "' was written past the library";
    return brokenAmount(command, panel_->errors().entries().size(),
        static_cast<std::size_t>(std::count(trace.begin(), trace.end(), '\n')));
}

std::string resolutionCommand()
{
    std::string command{"var "};
    return command.append(resolutionVariable).append(" = ");
}

int resolutionOf(const Commands& commands)
{
    const std::string command = resolutionCommand();
    if (commands.empty() || !commands.front().starts_with(command)) return firstResolution;
    return std::atoi(commands.front().c_str() + command.size());
}

} // namespace

Commands commandsOnPanel(unsigned seed, std::size_t count)
{
    constexpr std::array resolutions{1280, 1024, 800};
    RandomHands hands{seed};
    Commands commands{resolutionCommand() + std::to_string(resolutions[seed % resolutions.size()]),
        std::string{panelOnly} + "open"};
    while (commands.size() < count)
        commands.push_back(hands.next());
    return commands;
}

std::optional<std::string> brokenAmount(const std::string& command, std::size_t reports, std::size_t lines)
{
    constexpr std::size_t mostReports = 200; // lines of the list
    constexpr std::size_t mostLinesOfACommand = 20'000;
    if (reports > mostReports) return "the list of reports grows without end";
    if (lines > mostLinesOfACommand) return "'" + command + "' has no end";
    return std::nullopt;
}

Played playedOnPanel(const Commands& commands, const Progress& progress, std::string* trace)
{
    PanelRun run{resolutionOf(commands)};
    Played played;
    for (std::size_t i = 0; i < commands.size() && !played.finding; ++i) {
        if (progress) progress(i);
        const auto rule = run.play(commands[i]);
        played.commands.push_back(run.lastScenario());
        if (rule) played.finding = Finding{*rule, played.commands};
        if (trace != nullptr) trace->append(run.lastTrace());
    }
    played.tally = run.tally();
    return played;
}

std::optional<Finding> playOnPanel(const Commands& commands) { return playedOnPanel(commands).finding; }

std::string tracedOnPanel(const Commands& commands)
{
    std::string trace;
    const Played played = playedOnPanel(commands, {}, &trace);
    return played.finding ? "broken: " + played.finding->rule : trace;
}

} // namespace servopanel::monkey
