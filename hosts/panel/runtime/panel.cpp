#include "panel/runtime/panel.h"

#include "basic/conversions.h"
#include "machine/carry_over.h"
#include "panel/form/fusszeile.h"
#include "panel/form/ini_eingabe.h"
#include "panel/form/schalter.h"
#include "panel/look/touch_size.h"
#include "panel/widgets/message_sheet.h"
#include "panel/window/other_screen.h"
#include "platform/ids.h"

#include <system_error>

namespace servopanel::panel {

using basic::Variant;
namespace names = platform::names;

namespace {

constexpr std::string_view levelVariable = "Ch-1.intern<.passwort>";
constexpr std::string_view rightToLeftVariable = "Ch-1.param_client<.arabisch>";
constexpr std::string_view machineVariable = "Ch-1.intern<.aktuelle_maschine>";
constexpr std::string_view servoVariable = "Ch-1.intern<.servo_zeiger>";
constexpr std::string_view servoCountVariable = "parameter<.servo_anzahl_";

// Metafiles for keys are drawn larger than any key and averaged down, so that they are sharp at each size.
constexpr int keyPictureSide = 512;

QString toQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QSize stageSize(int resolution)
{
    switch (resolution) {
    case 800: return {800, 600};
    case 1024: return {1024, 768};
    default: return {1280, 1024};
    }
}

bool isVisible(Child& child) { return basic::toBoolean(child.get(names::Visible, {})); }

// Confirm and discard; with no change waiting the keys mean something else, and no switch waits either.
bool endsEdit(platform::Args args)
{
    const std::int16_t key = args.empty() ? std::int16_t{0} : basic::toInt16(args[0]);
    return key == 10 || key == 11;
}

// A switch is told the end of an edit by its new state alone, which does not come while the machine is silent.
void settleSwitches(ControlHost& form)
{
    form.forEach([](std::string_view, std::int16_t, Child& child) {
        if (auto* lever = dynamic_cast<SchalterChild*>(&child)) lever->settle();
    });
}

// Whether the mask or the definition editor is open.
bool isEntering(ControlHost& part)
{
    for (const std::string_view name : {"Eingabemaske", "IniEingabe"}) {
        Child* mask = part.find(name);
        if (mask != nullptr && isVisible(*mask)) return true;
    }
    return false;
}

portable::PathMapping mapping(const PanelSettings& settings)
{
    portable::PathMapping result{settings.project};
    const platform::EnvironmentValue folder = portable::environmentValue("TEMPVELM");
    if (folder.state == platform::EnvironmentValue::State::Present) {
        // Without it the menu would have no pictures; where it cannot be made, each of them is reported.
        std::error_code ignored;
        std::filesystem::create_directories(folder.text, ignored);
        result.mapTemporaryFolder(folder.text);
    }
    if (!settings.temporary.empty()) {
        result.mapFolder("C:\\Temp", settings.temporary);
        if (folder.state == platform::EnvironmentValue::State::Present && !folder.text.empty())
            result.mapFolder(folder.text, settings.temporary);
    }
    return result;
}

} // namespace

machine::ProjectFile Panel::loadProject(const std::filesystem::path& folder)
{
    std::error_code code; // of links that lead in a circle, or folders that are closed to us
    if (!std::filesystem::is_directory(folder, code))
        throw CannotStart{"'" + folder.string() + "' is no folder"};
    const std::filesystem::path file = folder / "project.json";
    if (!std::filesystem::is_regular_file(file, code))
        throw CannotStart{"'" + folder.string() + "' is no project: it has no project.json"};
    return machine::ProjectFile::load(file);
}

Panel::Panel(PanelSettings settings)
    : settings_{std::move(settings)}
    , file_{settings_.file ? *settings_.file : loadProject(settings_.project)}
    , mapping_{mapping(settings_)}
    , languages_{settings_.project, file_}
    , watched_{std::make_shared<WatchedVariables>(
          settings_.wrapVariables ? settings_.wrapVariables(variables_) : variables_)}
    , headerWriter_{*watched_, languages_, [this](PanelText text) { return word(text); }}
    , window_{stageSize(settings_.resolution.value_or(file_.resolution)), settings_.zoom}
    , errors_{window_.stage(), [this](PanelText text) { return word(text); }, [this] { return now(); }}
    , answers_{*new AnswerStrip{&window_.stage()}}
    , guard_{window_, gate_, [this] { answers_.touched(); }}
    , confirms_{*watched_, answers_, [this](PanelText text) { return word(text); },
          [this](const QString& line) { errors_.add(ErrorEntry::Origin::Panel, line); }}
    , trends_{window_.stage(), [this](std::string_view name) { return watched_->look(name); },
          [this](PanelText text) { return word(text); }, [this] { return mayShowTrends(); }, trendClocks()}
    , messages_{window_.stage(), gate_, [this](PanelText text) { return word(text); }}
    , objects_{{watched_,
          std::make_shared<PanelPathHelper>(mapping_, file_.input,
              [this](std::int16_t number) { gate_.later([this, number] { openScreen(number); }); }),
          errors_, makeDatabase()}}
    , forms_{
          *this, gate_, *this, [this](std::string_view className, const platform::ControlPlatform& platform) {
              return make(className, platform);
          }}
{
    errors_.setAddedHandler(settings_.outside.reported);
    applySettings();
    stateDiagonal(window_.stage(), file_.diagonalInches.value_or(usualDiagonal(window_.stage().width())));
    watched_->setChangeHandler([this] { showValueStates(); });
    watched_->setObserver([this](std::string_view name, const Variant* value) { trends_.seen(name, value); });
    window_.setKeyHandler([this](int number) { pressKey(number); });
    window_.setCloseHandler([this] {
        gate_.later([this] {
            closeScreen();
            window_.closeNow();
        });
    });
    placeErrorKey();
    placeAnswers();
    noteProblems();
    if (file_.machine && settings_.simulate) {
        machine_ = std::make_unique<MachineRunner>(*file_.machine, *variables_);
        for (const machine::Problem& problem : machine_->problems())
            note(problem.text());
    }
    startTrace();
    platform::LibraryPlatform platform{objects_, messages_, profile_, files_, surroundings_, pictures_};
    if (sink_) {
        recorder_ = std::make_unique<recording::Recorder>(platform, *sink_);
        library_ = std::make_unique<shell::Library>(recorder_->platform());
    } else {
        library_ = std::make_unique<shell::Library>(platform);
    }
}

MakeDatabase Panel::makeDatabase()
{
    if (settings_.makeDatabase) return settings_.makeDatabase;
    return [this] { return std::make_shared<jet::JetEngine>(mapping_); };
}

// A clock that is given instead of the system's jumps only if it is made to.
Trends::Clocks Panel::trendClocks()
{
    if (!settings_.clock) return {{}, [this] { return now(); }};
    return {[clock = settings_.clock] { return static_cast<double>(clock().toMSecsSinceEpoch()) / 1000; },
        settings_.clock};
}

Panel::~Panel()
{
    closeScreen();
    variables_->removeListener(choiceListener_);
    setLanguageLook({{valueFamily()}});
}

void Panel::applySettings()
{
    file_.declareVariables(*variables_);
    if (settings_.before)
        machine::carryOver(settings_.before->file, *settings_.before->variables, file_, *variables_);
    if (settings_.resolution)
        setVariable(machine::resolutionVariable, Variant{static_cast<std::int16_t>(*settings_.resolution)});
    setLevel(settings_.level.value_or(file_.level));
    if (!settings_.language.empty() && !languages_.choose(settings_.language))
        throw CannotStart{"the project has no language '" + settings_.language + "'"};
    takeUpChoices();
    applyLanguage();
}

// A language on the command line counts more than one that was chosen before.
void Panel::takeUpChoices()
{
    std::optional<Choices> choices;
    if (!settings_.state.empty()) {
        remembered_.emplace(settings_.state, settings_.project);
        choices = remembered_->load();
        if (!remembered_->problem().empty()) note(remembered_->problem());
    }
    if (settings_.before) choices = settings_.before->choices;
    if (choices) {
        if (choices->language && settings_.language.empty()) languages_.choose(*choices->language);
        const std::string count =
            std::string{servoCountVariable} + basic::decimal(std::int32_t{choices->machine}) + ">";
        // Another machine, or fewer servos than before: the menu is the place to start from.
        if (choices->machine == number(machineVariable) && choices->servo <= number(count))
            setVariable(servoVariable, Variant{choices->servo});
    }
    choiceListener_ = variables_->addListener([this](const machine::VariableStore::Write& write) {
        if (write.name == servoVariable || write.name == machineVariable)
            gate_.later([this] { rememberChoices(); });
    });
}

std::int16_t Panel::number(std::string_view variable)
{
    const Variant* value = variables_->find(variable);
    try {
        return value == nullptr ? std::int16_t{0} : basic::toInt16(*value);
    } catch (const basic::Error&) {
        return 0;
    }
}

void Panel::setShownServo(std::int16_t place) { setVariable(servoVariable, Variant{place}); }

void Panel::setLevel(std::int16_t level) { setVariable(levelVariable, Variant{level}); }

Choices Panel::choices()
{
    Choices choices{{}, number(machineVariable), number(servoVariable)};
    if (!languages_.all().empty()) choices.language = languages_.current();
    return choices;
}

void Panel::rememberChoices()
{
    if (!remembered_) return;
    remembered_->save(choices());
    if (!remembered_->problem().empty()) note(remembered_->problem());
}

std::shared_ptr<const Held> Panel::hold()
{
    return std::make_shared<const Held>(Held{file_, variables_, choices()});
}

void Panel::setVariable(std::string_view name, const Variant& value)
{
    if (variables_->find(name) == nullptr)
        variables_->declare(name, value);
    else
        mirror(name, value);
}

// The library asks for the direction whenever it starts a control; the panel's own widgets follow the stage at once.
void Panel::applyLanguage()
{
    const bool rightToLeft = languages_.isRightToLeft();
    setLanguageLook(languages_.look());
    setVariable(rightToLeftVariable, Variant{rightToLeft});
    const std::string name = title();
    window_.setWindowTitle(name.empty() ? QStringLiteral("servo-panel") : toQt(name));
    window_.stage().setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
}

// The project's name in the language of the operator, where the texts have one.
std::string Panel::title()
{
    const std::string* const own = languages_.find("Panel.Title");
    return own == nullptr || own->empty() ? file_.title : *own;
}

void Panel::noteProblems()
{
    for (const machine::Problem& problem : file_.problems)
        note(problem.text());
    for (const machine::Problem& problem : languages_.problems())
        note(problem.text());
}

void Panel::note(const std::string& text) { errors_.add(ErrorEntry::Origin::Panel, toQt(text)); }

void Panel::startTrace()
{
    if (settings_.trace.empty()) return;
    // A panel that takes another one's place goes on with its trace.
    traceFile_.open(settings_.trace, std::ios::binary | (settings_.before ? std::ios::app : std::ios::trunc));
    if (!traceFile_) {
        const std::string file = std::string{" '"}.append(settings_.trace.string()).append("'");
        if (!settings_.before) throw CannotStart{panelWord(PanelText::NoTrace, "en").toStdString() + file};
        // The operator goes on working; the trace is for others.
        note(word(PanelText::NoTrace).toStdString() + file);
        return;
    }
    sink_ = std::make_unique<recording::TraceSink>([this](std::string_view lines) {
        traceFile_ << lines;
        traceFile_.flush(); // a trace is wanted most when the panel does not come to its end
    });
}

MadeControl Panel::make(std::string_view className, const platform::ControlPlatform& platform)
{
    if (!recorder_) return {nullptr, library_->createControl(className, platform)};
    std::shared_ptr<recording::RecordedControl> recorded = recorder_->control(className, platform);
    auto control = library_->createControl(className, recorded->platform());
    return {std::move(recorded), std::move(control)};
}

void Panel::openServo()
{
    closeScreen();
    watched_->startDisplays();
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
    // What was read while the control was being made found no displays yet.
    showValueStates();
    if (settings_.outside.servoOpened) settings_.outside.servoOpened(*servo_);
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

QDateTime Panel::now() { return settings_.clock ? settings_.clock() : QDateTime::currentDateTime(); }

void Panel::setLink(const Link& link)
{
    const bool isNews = link_.good != link.good || link_.reason != link.reason;
    link_ = link;
    watched_->setLink(link.good);
    if (!isNews) return;
    if (!link_.good) note(link_.reason);
    showValueStates();
}

ValueState Panel::valueState(const ValueSource& source) { return watched_->state(source); }

Services::FamilyRead Panel::familyRead(std::string_view family)
{
    const WatchedVariables::Read* const read = watched_->latest(family);
    if (read == nullptr) return {};
    return {read->variable, watched_->isOfNow(*read) ? &read->value : nullptr};
}

void Panel::showValueStates()
{
    if (servo_) servo_->showValueStates();
}

void Panel::eventBegins(ControlHost& form, std::string_view event, platform::Args)
{
    if (event == "TasteClick") confirms_.keyBegins(form);
}

void Panel::eventEnds(ControlHost& form, std::string_view event, platform::Args args)
{
    if (event == "TasteClick" && endsEdit(args)) settleSwitches(form);
    // The library has put into the displays what it read.
    showValueStates();
    if (event == "TasteClick") confirms_.keyEnds(form, link_.good);
    // The library has brought its texts in the new language only now.
    if (event == "SpracheGeandert") retranslate();
    ControlHost* part = shownPart();
    if (part == nullptr || part->className() != platform::classes::ServoMain) {
        answers_.dismiss();
        return;
    }
    auto* mask = dynamic_cast<EingabemaskeChild*>(part->find("Eingabemaske"));
    auto* editor = dynamic_cast<IniEingabeChild*>(part->find("IniEingabe"));
    answers_.setCovered((mask != nullptr && mask->isOpen()) || (editor != nullptr && editor->isOpen()));
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

// Whoever reads a message or enters a value is left in peace.
bool Panel::mayShowTrends()
{
    ControlHost* part = shownPart();
    return part != nullptr && !gate_.isClosed() && !isEntering(*part);
}

bool Panel::hasUnfinishedInput()
{
    if (gate_.isBusy() || gate_.isClosed()) return true;
    ControlHost* part = shownPart();
    if (part == nullptr) return false;
    bool changed = isEntering(*part);
    part->forEach(
        [&](std::string_view, std::int16_t, Child& child) { changed = changed || child.isChanged(); });
    return changed;
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

void Panel::endMessage()
{
    for (QObject* each : window_.stage().children())
        if (auto* message = dynamic_cast<MessageSheet*>(each)) message->end();
}

void Panel::pressKey(int number)
{
    if (gate_.isClosed() || takesKey(number)) return;
    if (ControlHost* part = shownPart()) {
        if (auto* footer = dynamic_cast<FußzeileChild*>(part->find("Fußzeile"))) footer->press(number);
    } else if (otherScreen_ != 0 && number == 11) {
        gate_.later([this] { openServo(); });
    }
}

// The way out closes what lies on the page first.
bool Panel::takesKey(int number)
{
    if (number != 11 || !trends_.isOpen()) return false;
    trends_.close();
    return true;
}

QString Panel::word(PanelText text)
{
    const std::string* const own = languages_.find(panelTextKey(text));
    const bool hasOwn = own != nullptr && !own->empty();
    return hasOwn ? toQt(*own) : panelWord(text, languages_.currentCode());
}

QImage Panel::picture(std::string_view name)
{
    const std::string key{name};
    try {
        const std::optional<std::filesystem::path> file = mapping_.find(name);
        if (!file) {
            note(std::string{"'"}.append(key).append("': ").append(word(PanelText::NoFile).toStdString()));
            return {};
        }
        return pictureCache_.load(*file, key, keyPictureSide);
    } catch (const basic::Error& error) {
        note(error.description);
        return {};
    }
}

void Panel::mirror(std::string_view variable, const Variant& value)
{
    try {
        variables_->write(variable, value, machine::Writer::Host);
    } catch (const basic::Error& error) {
        note(error.description);
    }
}

void Panel::operation(const std::string& command)
{
    if (sink_) sink_->line("> " + command);
}

std::vector<HeaderLanguage> Panel::languages()
{
    std::vector<HeaderLanguage> result;
    for (const Languages::Language& language : languages_.all())
        result.push_back({language.settings.number, toQt(language.settings.name)});
    return result;
}

void Panel::chooseLanguage(int number)
{
    if (!languages_.choose(static_cast<std::int16_t>(number))) return;
    applyLanguage();
    retranslate();
    rememberChoices();
}

// Everything that repeats texts of the project or shows words of the panel.
void Panel::retranslate()
{
    if (servo_) servo_->languageChanged();
    trends_.languageChanged();
    errors_.languageChanged();
    confirms_.languageChanged(shownPart());
    window_.stage().update();
}

HeaderTexts Panel::headerTexts() { return headerWriter_.write(toQt(title()), shownPart()); }

} // namespace servopanel::panel
