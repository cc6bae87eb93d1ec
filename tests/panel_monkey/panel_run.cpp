#include "panel_monkey/panel_run.h"

#include "monkey/parameters.h"
#include "monkey/project.h"
#include "monkey/rules.h"
#include "panel/flaky_variables.h"
#include "panel/form/eingabemaske.h"
#include "panel/form/fusszeile.h"
#include "panel/form/header.h"
#include "panel/form/ini_eingabe.h"
#include "panel/form/timer_child.h"
#include "panel/test_project.h"
#include "panel_monkey/by_hand.h"
#include "panel_monkey/random_hands.h"
#include "panel_monkey/words.h"
#include "platform/ids.h"
#include "recording/scenario/line_reader.h"

#include <QKeySequence>

#include <algorithm>
#include <array>
#include <exception>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

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
constexpr std::string_view resolutionCommand = "# panel: resolution ";

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
        if (away_.count(name) == 0) away_[name] = content(name);
        remove(name);
    }
    void spoil(const std::string& name)
    {
        lose(name);
        write(name, "[\x01\xFF=,;1e999\r\n=TRUE");
    }
    void bring(const std::string& name)
    {
        const auto kept = away_.find(name);
        if (kept == away_.end()) return;
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

// A panel under the hands of the operator, and what the rules see of it.
class PanelRun : public Screen {
public:
    explicit PanelRun(int resolution) { start(resolution); }

    // The panel as a program is started anew, with what is on its disk.
    void start(int resolution)
    {
        hands_.reset();
        reader_.reset();
        panel_.reset();
        panel::PanelSettings settings = project_.settings();
        settings.resolution = resolution;
        settings.trace = project_.file("panel.trace");
        settings.wrapVariables = [this](std::shared_ptr<platform::ProcessVarAccess> inner) {
            flaky_ = std::make_shared<testing::FlakyVariables>(std::move(inner));
            return flaky_;
        };
        panel_ = std::make_unique<Panel>(settings);
        reader_ = std::make_unique<testing::MessageReader>(*panel_);
        panel_->variables().addListener([this](const machine::VariableStore::Write& write) {
            if (write.writer != machine::Writer::Machine) written_.emplace(write.name);
        });
        panel_->window().show();
        static_cast<void>(QTest::qWaitForWindowExposed(&panel_->window()));
        hands_ = std::make_unique<Operator>(*panel_, 0);
        trace_.close();
        trace_.clear();
        trace_.open(project_.file("panel.trace"), std::ios::binary);
        Tally done = rules_ ? rules_->tally() : Tally{};
        rules_.emplace(*this);
        rules_->tally() = std::move(done);
        offersConfirm_ = false;
        open();
        static_cast<void>(rules_->broken(newTrace()));
    }

    // Everything that crossed the library's border in the last command.
    const std::string& lastTrace() const { return lastTrace_; }
    // What the command broke.
    std::optional<std::string> play(const std::string& command)
    {
        rules_->before();
        written_.clear();
        mayConfirm_ = false;
        std::optional<std::string> wrong;
        try {
            wrong = perform(command);
        } catch (const NotThere&) {
            rules_->tally().add(Tally::refused); // nothing that could be done now
        } catch (const recording::Malformed&) {
        } catch (const basic::Error& error) {
            return "an error came out of '" + command + "': " + error.description;
        } catch (const std::exception& error) {
            return "an exception came out of '" + command + "': " + error.what();
        }
        keepTimerStill();
        lastTrace_ = newTrace();
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
    bool isAnyMarked() override
    {
        bool marked = false;
        page()->forEach([&](std::string_view, std::int16_t, panel::Child& child) {
            marked = marked || child.isChanged();
        });
        return marked;
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
    const Tally& tally() const { return rules_->tally(); }

private:
    std::optional<std::string> perform(const std::string& command);
    std::optional<std::string> ofThePanel(const std::string& command);
    void forge(const std::string& what);
    void machine(std::string_view rest);
    void fail(Words words);
    void loss(const std::string& command);
    void touch(const std::vector<QPoint>& places);
    void press(const std::string& key);
    void tick();
    std::optional<std::string> probe();
    void closeWhatIsOpen();
    std::optional<std::string> brokenOnScreen(const std::string& command, const std::string& trace);

    void open()
    {
        if (panel_->servo() == nullptr) panel_->openServo();
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
    // What the panel has written into its trace since the last call.
    std::string newTrace()
    {
        trace_.clear();
        return {std::istreambuf_iterator<char>{trace_}, {}};
    }
    void noteConfirmKey(const std::string& trace);
    bool isOnConfirmKey(QPoint place);

    Project project_;
    std::shared_ptr<testing::FlakyVariables> flaky_;
    std::unique_ptr<Panel> panel_;
    std::unique_ptr<testing::MessageReader> reader_;
    std::unique_ptr<Operator> hands_;
    std::ifstream trace_;
    std::string lastTrace_;
    std::optional<Rules> rules_;
    std::set<std::string> written_; // by the library or the panel in this command
    bool mayConfirm_ = false; // the operator pressed the confirm key in this command
    bool offersConfirm_ = false; // the picture of that key says so
};

std::optional<std::string> PanelRun::perform(const std::string& command)
{
    if (command.starts_with(panelOnly)) return ofThePanel(command.substr(panelOnly.size()));
    Words words{command};
    const std::string verb = words.word();
    mayConfirm_ = verb == "key" && words.whole() == confirmKey;
    if (doneByHand(*hands_, command)) return std::nullopt;
    if (verb == "timer") {
        tick();
    } else if (verb == "terminate") {
        panel_->closeScreen();
    } else if (verb == "create" || verb == "show") {
        open();
    } else if (verb == "var") {
        machine(std::string_view{command}.substr(4));
    } else if (verb == "fail") {
        fail(std::move(words));
    } else if (verb == "lose" || verb == "file" || verb == "picture" || verb == "db") {
        loss(command);
    }
    return std::nullopt;
}

std::optional<std::string> PanelRun::ofThePanel(const std::string& command)
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
    if (verb == "at") touch({place()});
    if (verb == "drag") {
        const QPoint from = place();
        touch({from, place()});
    }
    if (verb == "press") press(words.word());
    if (verb == "back") hands_->backFromOtherScreen();
    if (verb == "open") open();
    if (verb == "restart") start(words.whole());
    if (verb == "link") {
        const bool isGood = words.word() == "good";
        panel_->setLink({isGood, isGood ? "" : "the cable is out"});
    }
    if (verb == "lose") project_.lose(words.word());
    if (verb == "spoil") project_.spoil(words.word());
    if (verb == "bring") project_.bring(words.word());
    if (verb == "probe") return probe();
    if (verb == "forge") forge(words.word());
    return std::nullopt;
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
    } else if (page() != nullptr) {
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
    if (name == "parameter<.aufloesung>")
        return; // the screen of a panel stays as it is, each seed has its own
    try {
        panel_->variables().write(name, line.value("the value"), machine::Writer::Machine);
    } catch (const basic::Error&) {
        // no such value for this variable
    }
}

void PanelRun::fail(Words words)
{
    const std::string what = words.word();
    const std::string name = words.word();
    if (what == "read") flaky_->unreadable.insert(name);
    if (what == "write") flaky_->unwritable.insert(name);
    if (what != "none") return;
    flaky_->unreadable.clear();
    flaky_->unwritable.clear();
}

// A file goes, comes back as it was, or holds rubbish.
void PanelRun::loss(const std::string& command)
{
    for (const ProjectFile& file : projectFiles()) {
        std::string name = file.name;
        if (name.find(':') != std::string::npos) continue; // the temporary folder is the run's own
        std::replace(name.begin(), name.end(), '\\', '/');
        if (command == "lose " + file.name)
            project_.lose(name);
        else if (command == file.bringBack)
            project_.bring(name);
        else if (file.isText && command.starts_with("file " + file.name + "\n"))
            project_.spoil(name);
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
    if (ticking != nullptr && ticking->isTicking()) page()->deliver(ChildId{"Timer"}, "Timer", {});
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
    open();
    hands_->wait(0);
    ControlHost* const part = panel_->shownPart();
    if (part == nullptr) return "nothing is shown that could be touched";
    auto& footer = part->require<panel::FußzeileChild>("Fußzeile");
    for (const int number : {leaveKey, 5, 6, 7, 8, 1, 2}) {
        if (!footer.enabled() || !footer.bar().key(number).isOn()) continue;
        std::streampos before = trace_.tellg();
        hands_->footerKey(number);
        const std::string answer = newTrace();
        trace_.clear();
        trace_.seekg(before);
        if (answer.find("key " + std::to_string(number) + "\n") == std::string::npos)
            return "a touch of key " + std::to_string(number) + " does nothing";
        break;
    }
    return std::nullopt;
}

void PanelRun::noteConfirmKey(const std::string& trace)
{
    constexpr std::string_view put = "call ServoMain.Fußzeile.0x68030007(10, ";
    std::istringstream lines{trace};
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(put)) offersConfirm_ = line.find("OK.wmf") != std::string::npos;
}

std::optional<std::string> PanelRun::brokenOnScreen(const std::string& command, const std::string& trace)
{
    constexpr std::size_t mostReports = 200; // lines of the list
    constexpr std::size_t mostLinesOfACommand = 20'000;

    if (!mayConfirm_ && trace.find("> key 10\n") != std::string::npos)
        return "'" + command + "' confirms, and no confirm key was touched";
    const std::size_t touched = trace.find("> touch ");
    if (touched != std::string::npos && command.starts_with("touch ")
        && trace.compare(touched + 2, command.size() + 1, command + "\n") != 0)
        return "'" + command
            + "' reached another input: " + trace.substr(touched, trace.find('\n', touched) - touched);
    for (const std::string& name : written_)
        if (servoNameOf(name) && trace.find("write " + name + " = ") == std::string::npos)
            return "'" + name + "' was written past the library";
    if (panel_->errors().entries().size() > mostReports) return "the list of reports grows without end";
    if (static_cast<std::size_t>(std::count(trace.begin(), trace.end(), '\n')) > mostLinesOfACommand)
        return "'" + command + "' has no end";
    return std::nullopt;
}

std::string seededResolution(unsigned seed)
{
    constexpr std::array resolutions{1280, 1024, 800};
    return std::string{resolutionCommand} + std::to_string(resolutions[seed % resolutions.size()]);
}

int resolutionOf(const Commands& commands)
{
    if (commands.empty() || !commands.front().starts_with(resolutionCommand)) return 1280;
    return std::atoi(commands.front().c_str() + resolutionCommand.size());
}

} // namespace

Commands commandsOnPanel(unsigned seed, std::size_t count)
{
    RandomHands hands{seed};
    Commands commands{seededResolution(seed)};
    while (commands.size() < count)
        commands.push_back(hands.next());
    return commands;
}

Played playedOnPanel(const Commands& commands, const Progress& progress)
{
    PanelRun run{resolutionOf(commands)};
    for (std::size_t i = 0; i < commands.size(); ++i) {
        if (progress) progress(i);
        if (const auto rule = run.play(commands[i])) {
            const auto last = commands.begin() + static_cast<std::ptrdiff_t>(i) + 1;
            return {Finding{*rule, {commands.begin(), last}}, run.tally()};
        }
    }
    return {std::nullopt, run.tally()};
}

std::optional<Finding> playOnPanel(const Commands& commands) { return playedOnPanel(commands).finding; }

std::string tracedOnPanel(const Commands& commands)
{
    PanelRun run{resolutionOf(commands)};
    std::string trace;
    for (const std::string& command : commands) {
        if (const auto rule = run.play(command)) return "broken: " + *rule;
        trace += run.lastTrace();
    }
    return trace;
}

} // namespace servopanel::monkey
