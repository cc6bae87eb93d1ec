#include "panel/runtime/panel.h"

#include "journal/journaled_variables.h"
#include "panel/look/language_look.h"
#include "panel/look/qt_text.h"
#include "panel/look/touch_size.h"
#include "panel/runtime/broker_connection.h"

#include <system_error>

namespace servopanel::panel {

using basic::Variant;

namespace {

// Metafiles for keys are drawn larger than any key and averaged down, so that they are sharp at each size.
constexpr int keyPictureSide = 512;

QSize stageSize(int resolution)
{
    const machine::ScreenSize size = machine::screenSize(resolution);
    return {size.width, size.height};
}

portable::PathMapping mapping(const PanelSettings& settings)
{
    portable::PathMapping result{settings.project};
    const platform::EnvironmentValue folder = portable::environmentValue("TEMPVELM");
    if (folder.state == platform::EnvironmentValue::State::Present) result.mapTemporaryFolder(folder.text);
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
        throw CannotStart{'\'' + folder.string()
            + (std::filesystem::exists(folder, code) ? "' is no folder" : "' does not exist")};
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
    , connection_{settings_.broker ? std::make_unique<BrokerConnection>(*settings_.broker, settings_.name)
                                   : nullptr}
    , watched_{std::make_shared<WatchedVariables>(wayToTheMachine())}
    , headerWriter_{*watched_, languages_, [this](PanelText text) { return word(text); }}
    , window_{stageSize(settings_.resolution.value_or(file_.resolution)), settings_.zoom}
    , errors_{window_.stage(), [this](PanelText text) { return word(text); }, [this] { return now(); }}
    , answers_{*new AnswerStrip{&window_.stage()}}
    , guard_{window_, gate_, [this](std::optional<QPoint> at) { touched(at); }}
    , edits_{*watched_, answers_, [this](PanelText text) { return word(text); },
          [this](const QString& line) { errors_.add(ErrorEntry::Origin::Panel, line); }}
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
    if (file_.input == 0) edits_.setLocked();
    watched_->setChangeHandler([this] { showValueStates(); });
    watched_->setObserver([this](std::string_view name, const Variant* value) { trends_.seen(name, value); });
    answers_.setAskedHandler([this](bool isReported) { showAnswerInFull(isReported); });
    // A window that fills the screen gets that size some time after it was shown.
    window_.setSizedHandler([this] {
        if (servo_) noteLowRows();
    });
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
    if (file_.diagonalInches) window_.setScreenDiagonal(*file_.diagonalInches);
    if (journal_) journal_->open();
    if (file_.machine && settings_.simulate && !connection_) {
        machine_ = std::make_unique<MachineRunner>(*file_.machine, *variables_);
        for (const machine::Problem& problem : machine_->problems())
            note(problem.text());
    }
    if (connection_) startConnection();
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

QDateTime Panel::now() { return settings_.clock ? settings_.clock() : QDateTime::currentDateTime(); }

void Panel::operation(const std::string& command)
{
    if (sink_) sink_->line("> " + command);
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

} // namespace servopanel::panel
