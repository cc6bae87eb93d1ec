#include "monkey/play.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "monkey/kept_scenario.h"
#include "monkey/project.h"
#include "monkey/random_operator.h"
#include "monkey/rules.h"
#include "platform/ids.h"
#include "recording/memory/sibling_controls.h"
#include "recording/replay.h"
#include "servo_page/felder.h"

#include <algorithm>
#include <array>
#include <exception>

namespace servopanel::monkey {

namespace {

namespace ids = platform::ids;
using platform::ChildId;

// The control of a replay.
class MemoryScreen : public Screen {
public:
    explicit MemoryScreen(recording::Replay& replay)
        : replay_{replay}
    {
    }
    // After a command.
    void noteShow(const std::string& command)
    {
        if (command == "terminate" || command == "create") shown_ = false;
        if (command == "show" && replay_.host().servo() != nullptr) shown_ = true;
    }

    const basic::Variant* variable(std::string_view name) override
    {
        return replay_.host().world().variables.find(name);
    }
    bool isShown() override { return shown_ && replay_.host().servo() != nullptr; }
    bool isSeen(std::string_view part) override
    {
        const auto control = replay_.host().servo()->form().find(ChildId{part});
        return control && control->isShown();
    }
    std::set<std::int16_t> marked() override
    {
        std::set<std::int16_t> found;
        auto* const page = pageOrNull();
        if (page == nullptr) return found;
        page->form().forEach([&](const ChildId& id, recording::MemoryControl& control) {
            const bool isSetpoint = id.name == "SollwertL" || id.name == "SollwertR";
            const bool isDrawing = id.name == "ZeichnungL" || id.name == "ZeichnungR";
            if (!isSetpoint && !isDrawing) return;
            const basic::Variant colour =
                control.get(isSetpoint ? ids::VWSVarIn::Vordergrund : ids::VWSIndex::Farbe);
            if (colour.get<std::int32_t>() && *colour.get<std::int32_t>() == servo_page::farben::Grün)
                found.insert(id.index);
        });
        return found;
    }
    bool offersConfirm() override
    {
        const auto keys = footer();
        const auto picture = keys ? keys->setting(ids::Fußzeile::Bild, confirmKey) : std::nullopt;
        return picture && *picture == basic::Variant{"Standard\\OK.wmf"};
    }
    bool isConfirmOn() override
    {
        const auto keys = footer();
        return keys && keys->isKeyOn(confirmKey);
    }
    // Nobody touches what is not to be seen. The header is there with both parts.
    bool isOperable(std::string_view command)
    {
        if (!isShown()) return false;
        if (command.starts_with("language")) return true;
        return isSeen(
            command.starts_with("menu") || command.starts_with("scroll") ? "ServoMenu" : "ServoMain");
    }
    bool isInputOpen() override
    {
        return isOpen("Eingabemaske", ids::Eingabemaske::Offen)
            || isOpen("IniEingabe", ids::IniEingabe::Offen);
    }
    bool takesEveryNumber() override { return false; } // its mask compares each one

private:
    static constexpr std::int16_t confirmKey = 10;

    recording::ControlInstance* pageOrNull() { return replay_.host().servo()->inner("ServoMain"); }
    std::shared_ptr<recording::MemoryFooter> footer()
    {
        auto* const page = pageOrNull();
        if (page == nullptr) return nullptr;
        return std::dynamic_pointer_cast<recording::MemoryFooter>(page->form().find(ChildId{"Fußzeile"}));
    }
    bool isOpen(std::string_view name, const platform::Member& open)
    {
        auto* const page = pageOrNull();
        const auto input = page == nullptr ? nullptr : page->form().find(ChildId{name});
        return input && basic::toBoolean(input->get(open));
    }

    recording::Replay& replay_;
    bool shown_ = false; // since the control was created
};

// Whether the command is a touch or a tick, and not something that the host, the machine or an engineer does.
bool needsScreen(std::string_view command)
{
    constexpr std::array<std::string_view, 10> others{
        "create", "show", "terminate", "var ", "input ", "fail ", "lose ", "file ", "picture ", "db "};
    return std::none_of(
        others.begin(), others.end(), [&](std::string_view other) { return command.starts_with(other); });
}

class Session {
public:
    Session() { replay_.run(monkeyProject()); }

    // Back to the state of the beginning, with a control that is made anew and was looked at everywhere.
    void beginAnew()
    {
        rules_.reset();
        if (replay_.host().servo() != nullptr) replay_.run("terminate");
        std::string setUp = "fail none\ninput -1\nvar Ch-1.param_client<.arabisch> = false\n";
        replay_.run(setUp + monkeyProject());
        replay_.run(
            "create\nshow\nmenudown BildIm 1 100 100\nmenuup BildIm 1 100 100\nkey 10\nkey 7\nkey 8\n");
        replay_.run("key 10\nkey 6\nkey 6\nkey 11\nterminate");
        replay_.run(monkeyProject());
        std::string{}.swap(replay_.host().world().lastReport);
    }
    void begin() { rules_.emplace(screen_); }

    // What the command broke.
    std::optional<std::string> play(const std::string& command)
    {
        wasPlayed_ = false;
        // A host shows a control once, and nobody touches what is not shown.
        if (command == "show" && screen_.isShown()) return skip();
        if (needsScreen(command) && !screen_.isOperable(command)) return skip();
        rules_->before();
        std::string trace;
        wasPlayed_ = true;
        const auto exception = exceptionOf([&] {
            try {
                trace = replay_.run(command);
            } catch (const recording::ScenarioError&) {
                wasPlayed_ = false; // nothing that could be done now
            }
        });
        if (exception) return exception;
        if (!wasPlayed_) return skip();
        rules_->tally().add(Tally::played);
        screen_.noteShow(command);
        return rules_->broken(trace);
    }
    // Nobody else can play the other ones either.
    bool wasPlayed() const { return wasPlayed_; }
    const Tally& tally() const { return rules_->tally(); }

private:
    std::optional<std::string> skip()
    {
        rules_->tally().add(Tally::skipped);
        return std::nullopt;
    }

    recording::Replay replay_;
    MemoryScreen screen_{replay_};
    std::optional<Rules> rules_;
    bool wasPlayed_ = false;
};

// Plays the commands until one breaks a rule, and says which of them were played.
std::optional<std::string> playAll(
    Session& session, const Commands& commands, const Progress& progress, std::vector<bool>& wasPlayed)
{
    session.begin();
    for (std::size_t i = 0; i < commands.size(); ++i) {
        if (progress) progress(i);
        const auto rule = session.play(commands[i]);
        wasPlayed[i] = rule || session.wasPlayed();
        if (rule) return rule;
    }
    return std::nullopt;
}

// What is kept on purpose, such as pictures, is kept by now; a second time nothing more may be.
bool isMoreTheSecondTime(Session& session, const Commands& commands, const Progress& progress, Pieces pieces)
{
    std::vector<bool> wasPlayed(commands.size());
    session.beginAnew();
    const std::size_t first = pieces();
    static_cast<void>(playAll(session, commands, progress, wasPlayed));
    session.beginAnew();
    return pieces() > first;
}

} // namespace

std::optional<std::string> exceptionOf(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const basic::Error& error) {
        return "an error came out: " + error.description;
    } catch (const std::exception& error) {
        return std::string{"an exception came out: "} + error.what();
    } catch (...) {
        return "an exception of another kind came out";
    }
    return std::nullopt;
}

Commands commandsOf(unsigned seed, std::size_t count)
{
    RandomOperator person{seed};
    Commands commands{"create", "show"};
    while (commands.size() < count)
        commands.push_back(person.next());
    return commands;
}

Played played(const Commands& given, const Progress& progress, Pieces pieces)
{
    const Commands commands = ofTheLibrary(given);
    std::vector<bool> wasPlayed(commands.size());
    Session session;
    std::optional<std::string> rule = playAll(session, commands, progress, wasPlayed);
    Played result{std::nullopt, session.tally(), {}};
    if (!rule && pieces != nullptr && isMoreTheSecondTime(session, commands, progress, pieces))
        rule = memoryRule;
    for (std::size_t i = 0; i < commands.size(); ++i)
        if (wasPlayed[i]) result.commands.push_back(commands[i]);
    if (rule) result.finding = Finding{*rule, result.commands};
    return result;
}

std::optional<Finding> play(const Commands& commands) { return played(commands).finding; }

Finding shrunk(const Finding& finding, const Play& play)
{
    Finding least = finding;
    // Large pieces first: most commands have nothing to do with it.
    for (std::size_t piece = std::max<std::size_t>(least.commands.size() / 2, 1);;
         piece = std::max<std::size_t>(piece / 2, 1)) {
        bool wasShorter = false;
        for (std::size_t at = 0; at < least.commands.size();) {
            Commands fewer = least.commands;
            const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(at);
            fewer.erase(
                first, fewer.begin() + static_cast<std::ptrdiff_t>(std::min(at + piece, fewer.size())));
            const auto found = play(fewer);
            if (found && found->rule == least.rule) {
                least = *found;
                wasShorter = true;
            } else {
                at += piece;
            }
        }
        if (piece == 1 && !wasShorter) return least;
    }
}

} // namespace servopanel::monkey
