#pragma once

#include "jet/jet_engine.h"
#include "journal/journal_file.h"
#include "machine/project_file.h"
#include "machine/variable_store.h"
#include "panel/form/control_host.h"
#include "panel/runtime/broker_settings.h"
#include "panel/runtime/confirm_answers.h"
#include "panel/runtime/edit_check.h"
#include "panel/runtime/header_writer.h"
#include "panel/runtime/input_guard.h"
#include "panel/runtime/languages.h"
#include "panel/runtime/machine_runner.h"
#include "panel/runtime/panel_services.h"
#include "panel/runtime/remembered_choices.h"
#include "panel/runtime/waiting_edits.h"
#include "panel/runtime/watched_variables.h"
#include "panel/trends/trends.h"
#include "panel/widgets/answer_strip.h"
#include "panel/window/panel_window.h"
#include "portable/computer_name.h"
#include "portable/portable_files.h"
#include "portable/portable_profile.h"
#include "recording/trace/recorder.h"
#include "shell/library.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

namespace servopanel::journal {
class JournaledVariables;
}

namespace servopanel::panel {

class BrokerConnection;

// What a panel held when it ended, for the one that comes after it.
struct Held {
    machine::ProjectFile file;
    std::shared_ptr<machine::VariableStore> variables;
    Choices choices;
    std::shared_ptr<journal::JournalFile> journal; // with what could not be written yet
};

// What a program around the panel does itself or wants to know; each may be empty.
struct Outside {
    std::function<void(std::int16_t number)>
        openScreen; // instead of the stand-ins for the project's other screens
    std::function<void(ControlHost& servo)> servoOpened; // each time the control was made
    std::function<void(const ErrorEntry& report)> reported;
};

struct PanelSettings {
    std::filesystem::path project;
    std::optional<machine::ProjectFile> file; // read already; otherwise the one in the folder
    std::optional<int> resolution; // pixels of width; otherwise the project's
    std::string language; // number or code; empty: the project's
    std::optional<std::int16_t> level; // access level; otherwise the project's
    std::filesystem::path trace; // file for everything that crosses the library's border; empty: none
    std::filesystem::path
        state; // folder for what the operator chose, kept over a restart; empty: nothing is kept
    std::string name = portable::computerName("servo-panel"); // of this panel, its own among all of the line
    std::filesystem::path journal; // folder for a record of all writes to the machines; empty: none
    std::shared_ptr<const Held> before; // of the panel that this one takes the place of
    std::filesystem::path temporary; // where scaled pictures are kept; empty: the system's temporary folder
    PanelWindow::Zoom zoom = PanelWindow::Zoom::None;
    bool simulate = true; // false: the process variables stay as they are; with a broker they do anyway
    MakeDatabase makeDatabase; // another engine than the one for the project's own database file
    std::optional<BrokerSettings> broker; // where the machines are; otherwise in the panel itself
    // Another way to the process variables than straight to the panel's own.
    std::function<std::shared_ptr<platform::ProcessVarAccess>(std::shared_ptr<platform::ProcessVarAccess>)>
        wrapVariables;
    // The wall clock, whose seconds trends then count as well; empty: the clocks of the system.
    std::function<QDateTime()> clock;
    Outside outside;
};

// Why a panel cannot be started at all: one line for the engineer.
struct CannotStart {
    std::string reason;
};

// One panel: a project opened, the library with everything it asks for, and the window with the screen that is shown.
class Panel : public Services, public HeaderSource {
public:
    // Raises CannotStart when the folder is no project. Anything else that is wrong is noted in the list of reports.
    explicit Panel(PanelSettings settings);
    ~Panel() override;

    // The project's file as it stands in the folder. Raises CannotStart when there is none.
    static machine::ProjectFile loadProject(const std::filesystem::path& folder);

    PanelWindow& window() { return window_; }
    // What describes the panel, and its machines unless they are on a broker.
    machine::VariableStore& variables() { return *variables_; }
    // Told of everything that the library writes.
    void setWrittenHandler(WatchedVariables::Written written)
    {
        watched_->setWrittenHandler(std::move(written));
    }
    ErrorList& errors() { return errors_; }
    EventGate& gate() { return gate_; }
    Trends& trends() { return trends_; }
    const machine::ProjectFile& project() const { return file_; }

    // Place of the servo that the control begins with the next time it is made, 0 for the menu.
    void setShownServo(std::int16_t place);
    // Access level, 0 operator to 5 service. What was entered stays.
    void setLevel(std::int16_t level);
    // Shows the screen with the Servo control, made anew.
    void openServo();
    // The control of the shown screen, nullptr while another screen is shown.
    ControlHost* servo() { return servo_.get(); }
    // ServoMain or ServoMenu, whichever is visible; nullptr when none is.
    ControlHost* shownPart();
    // Number of the other screen that is shown, 0 for none.
    std::int16_t otherScreen() const { return otherScreen_; }
    // Ends the control that is shown.
    void closeScreen();

    // Whether an input is open or not confirmed yet, or a message is read, so that the panel must not be taken away.
    bool hasUnfinishedInput();
    std::shared_ptr<const Held> hold();

    // Ends the message that is open, as if the operator had read it.
    void endMessage();

    // A key of the keyboard: footer keys 1 to 12.
    void pressKey(int number);
    // A line in the list of reports; the panel's own words in the operator's language, details as they are.
    void note(const std::string& text);
    void note(PanelText text) { note(word(text).toStdString()); }

    // The way to the machine, as whoever holds the connection sees it. While it is bad every value is shown as the last
    // known one. reason: for the list of reports.
    struct Link {
        bool good = true;
        std::string reason;
    };
    void setLink(const Link& link);
    AnswerStrip& answers() { return answers_; }

    // Services
    std::string text(std::string_view key) override { return languages_.text(key); }
    LanguageFont font() override { return languages_.font(); }
    QString word(PanelText text) override;
    QImage picture(std::string_view name) override;
    void mirror(std::string_view variable, const basic::Variant& value) override;
    void operation(const std::string& command) override;
    bool takesKey(int number) override;
    bool admits(
        ControlHost& form, platform::ChildId id, std::string_view event, platform::Args args) override;
    ValueState valueState(const ValueSource& source) override;
    FamilyRead familyRead(std::string_view family) override;
    void lockedTouched(Child& input) override;
    void eventBegins(ControlHost& form, std::string_view event, platform::Args args) override;
    void eventEnds(ControlHost& form, std::string_view event, platform::Args args) override;
    // HeaderSource
    std::vector<HeaderLanguage> languages() override;
    int language() override { return languages_.current(); }
    void chooseLanguage(int number) override;
    HeaderTexts headerTexts() override;
    QDateTime now() override;
    bool isFree() override { return !gate_.isBusy() && !gate_.isClosed(); }

private:
    std::shared_ptr<platform::ProcessVarAccess> wayToTheMachine();
    std::shared_ptr<platform::ProcessVarAccess> journaled(std::shared_ptr<platform::ProcessVarAccess> way);
    MakeDatabase makeDatabase();
    Trends::Clocks trendClocks();
    void applySettings();
    void takeUpChoices();
    Choices choices();
    void rememberChoices();
    std::int16_t number(std::string_view variable);
    void setVariable(std::string_view name, const basic::Variant& value);
    void applyLanguage();
    void retranslate();
    void followMenuLanguage(std::string_view event);
    void tellMenuLanguage();
    std::string title();
    void noteProblems();
    void startTrace();
    MadeControl make(std::string_view className, const platform::ControlPlatform& platform);
    void openScreen(std::int16_t number);
    void placeErrorKey();
    void placeAnswers();
    // Tells the engineer when rows are too low for a finger on the screen that the project states.
    void noteLowRows();
    // The operator has touched a place of the window, or pressed a key.
    void touched(std::optional<QPoint> at);
    void showAnswerInFull(bool isReported);
    void showValueStates();
    void showConfirmKey();
    void keepWaiting(ControlHost& page);
    // Whether an input of the part waits to be confirmed.
    static bool hasChange(ControlHost& part);
    // Whether an input is open or waits to be confirmed.
    bool hasOpenEdit();
    void startConnection();
    void showMachine();
    void followConnection();
    std::string machineDesignation();
    bool mayShowTrends();

    PanelSettings settings_;
    machine::ProjectFile file_;
    portable::PathMapping mapping_;
    Languages languages_;
    std::shared_ptr<machine::VariableStore> variables_ = std::make_shared<machine::VariableStore>();
    std::unique_ptr<BrokerConnection> connection_; // nullptr: the machines are in the panel itself
    std::shared_ptr<journal::JournalFile> journalFile_; // nullptr like the following: no journal is kept
    std::shared_ptr<journal::JournaledVariables> journal_;
    std::shared_ptr<WatchedVariables> watched_;
    std::optional<RememberedChoices> remembered_;
    machine::VariableStore::ListenerId choiceListener_ = 0;
    HeaderWriter headerWriter_;
    Link link_;
    EventGate gate_;
    PanelWindow window_;
    ErrorList errors_;
    AnswerStrip& answers_; // belongs to the stage
    InputGuard guard_;
    EditCheck edits_;
    ConfirmAnswers confirms_;
    WaitingEdits edited_;
    Trends trends_;
    std::unique_ptr<MachineRunner> machine_;
    PictureCache pictureCache_;

    portable::PortableFiles files_{mapping_};
    portable::PortableProfile profile_{mapping_};
    PanelPictures pictures_{mapping_, pictureCache_};
    PanelMessages messages_;
    PanelSurroundings surroundings_{portable::PortableSurroundings::Settings{}};
    PanelObjects objects_;

    std::ofstream traceFile_;
    std::unique_ptr<recording::TraceSink> sink_;
    std::unique_ptr<recording::Recorder> recorder_;
    std::unique_ptr<shell::Library> library_;

    FormSurroundings forms_;
    std::unique_ptr<ControlHost> servo_;
    std::optional<int> menuLanguage_; // in which the names in the menu are, nothing before it is built
    std::int16_t otherScreen_ = 0;
};

} // namespace servopanel::panel
