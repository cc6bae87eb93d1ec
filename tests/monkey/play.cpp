#include "monkey/play.h"

#include "monkey/random_operator.h"
#include "monkey/rules.h"
#include "support/standard_project.h"

#include <algorithm>
#include <exception>

namespace servopanel::monkey {

namespace {

class Session {
public:
    Session() { replay_.run(testing::standardProject); }

    // What the command broke.
    std::optional<std::string> play(const std::string& command)
    {
        // A host shows a control once.
        if (command == "show" && rules_.isShown()) return std::nullopt;
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
        return rules_.broken(command, trace);
    }

private:
    recording::Replay replay_;
    Rules rules_{replay_};
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
