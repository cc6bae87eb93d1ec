#include "monkey/play.h"

#include "monkey/random_operator.h"
#include "monkey/rules.h"
#include "platform/ids.h"
#include "recording/replay.h"
#include "servo_page/felder.h"
#include "support/standard_project.h"

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
    bool isAnyMarked() override
    {
        bool found = false;
        auto* const page = replay_.host().servo()->inner("ServoMain");
        if (page == nullptr) return false;
        page->form().forEach([&](const ChildId& id, recording::MemoryControl& control) {
            const bool isSetpoint = id.name == "SollwertL" || id.name == "SollwertR";
            const bool isDrawing = id.name == "ZeichnungL" || id.name == "ZeichnungR";
            if (!isSetpoint && !isDrawing) return;
            const basic::Variant colour =
                control.get(isSetpoint ? ids::VWSVarIn::Vordergrund : ids::VWSIndex::Farbe);
            if (colour.get<std::int32_t>() && *colour.get<std::int32_t>() == servo_page::farben::Grün)
                found = true;
        });
        return found;
    }
    bool offersConfirm() override
    {
        replay_.run("get ServoMain.Fußzeile.0x68030007(10)");
        return replay_.lines("state").find("OK.wmf") != std::string::npos;
    }

private:
    recording::Replay& replay_;
    bool shown_ = false; // since the control was created
};

// Whether the command is a touch or a tick, and not something that the host, the machine or an engineer does.
bool needsScreen(std::string_view command)
{
    constexpr std::array<std::string_view, 6> others{
        "create", "show", "terminate", "var ", "input ", "fail "};
    return std::none_of(
        others.begin(), others.end(), [&](std::string_view other) { return command.starts_with(other); });
}

class Session {
public:
    Session() { replay_.run(testing::standardProject); }

    // What the command broke.
    std::optional<std::string> play(const std::string& command)
    {
        // A host shows a control once, and nobody touches what is not shown.
        if (command == "show" && screen_.isShown()) return std::nullopt;
        if (needsScreen(command) && !screen_.isShown()) return std::nullopt;
        rules_.before();
        std::string trace;
        try {
            trace = replay_.run(command);
        } catch (const recording::ScenarioError&) {
            return std::nullopt; // nothing that could be done now
        } catch (const std::exception& error) {
            return std::string{"an exception: "} + error.what();
        } catch (...) {
            return "an exception of another kind";
        }
        screen_.noteShow(command);
        return rules_.broken(trace);
    }

private:
    recording::Replay replay_;
    MemoryScreen screen_{replay_};
    Rules rules_{screen_};
};

} // namespace

std::optional<Finding> playSeed(unsigned seed, std::size_t commands)
{
    Session session;
    RandomOperator person{seed};
    Finding finding{{}, {"create", "show"}};
    for (const std::string& command : finding.commands)
        session.play(command);
    while (finding.commands.size() < commands) {
        finding.commands.push_back(person.next());
        if (const auto rule = session.play(finding.commands.back())) {
            finding.rule = *rule;
            return finding;
        }
    }
    return std::nullopt;
}

std::optional<Finding> play(const std::vector<std::string>& commands)
{
    Session session;
    for (std::size_t i = 0; i < commands.size(); ++i)
        if (const auto rule = session.play(commands[i]))
            return Finding{*rule, {commands.begin(), commands.begin() + static_cast<std::ptrdiff_t>(i) + 1}};
    return std::nullopt;
}

Finding shrunk(const Finding& finding, const Play& play)
{
    Finding least = finding;
    // Large pieces first: most commands have nothing to do with it.
    for (std::size_t piece = std::max<std::size_t>(least.commands.size() / 2, 1);;
         piece = std::max<std::size_t>(piece / 2, 1)) {
        bool wasShorter = false;
        for (std::size_t at = 0; at < least.commands.size();) {
            std::vector<std::string> fewer = least.commands;
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
