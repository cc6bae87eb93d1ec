// The way to the panel's machines, which may be on a broker.
#include "basic/conversions.h"
#include "journal/journaled_variables.h"
#include "panel/runtime/broker_connection.h"
#include "panel/runtime/panel.h"
#include "panel/runtime/panel_variables.h"

namespace servopanel::panel {

using basic::Variant;

namespace {
// A broker that is there has sent everything by then; without one the panel starts and says so.
constexpr int startMilliseconds = 2000;
} // namespace

std::shared_ptr<platform::ProcessVarAccess> Panel::wayToTheMachine()
{
    std::shared_ptr<platform::ProcessVarAccess> way = variables_;
    if (connection_) way = connection_->variables(std::move(way));
    if (settings_.wrapVariables) way = settings_.wrapVariables(std::move(way));
    return settings_.journal.empty() ? way : journaled(std::move(way));
}

// Outside of all others, because they may lead to another machine than the panel's own or refuse a write themselves.
std::shared_ptr<platform::ProcessVarAccess> Panel::journaled(std::shared_ptr<platform::ProcessVarAccess> way)
{
    // A panel that takes another one's place goes on with its journal; nobody else can come in between.
    if (settings_.before && settings_.before->journal
        && settings_.before->journal->folder() == settings_.journal)
        journalFile_ = settings_.before->journal;
    else
        journalFile_ =
            std::make_shared<journal::JournalFile>(journal::JournalFileSettings{.folder = settings_.journal});
    journal_ = std::make_shared<journal::JournaledVariables>(std::move(way), *journalFile_,
        journal::JournalContext{.panel = [this] { return settings_.name; },
            .level = [this] { return number(levelVariable); },
            .trouble =
                [this](const std::string& reason) {
                    note(word(PanelText::NoJournal).toStdString().append(" ").append(reason));
                },
            .now = [this] { return std::int64_t{now().toMSecsSinceEpoch()}; }});
    return journal_;
}

void Panel::startConnection()
{
    if (settings_.broker->viewing) edits_.setViewing();
    connection_->setSlowHandler([this] { answers_.showBusy(word(PanelText::Writing)); });
    connection_->setLevel(number(levelVariable));
    showMachine();
    connection_->start([this] { followConnection(); });
}

// The control reads what its machine has while it is made.
void Panel::showMachine()
{
    const std::string machine = machineDesignation();
    if (connection_->show(machine)) connection_->waitFor(machine, startMilliseconds);
    followConnection();
}

void Panel::followConnection()
{
    for (const std::string& problem : connection_->takeProblems())
        note(problem);
    std::string trouble = connection_->trouble();
    setLink({trouble.empty(), std::move(trouble)});
    // The library may be in the middle of a confirm.
    if (gate_.isBusy()) return;
    ControlHost* const part = shownPart();
    const bool isPage = part != nullptr && part->className() == platform::classes::ServoMain;
    confirms_.findOut(isPage ? part : nullptr, connection_->now());
}

// Of the machine to be shown; empty where the project does not say.
std::string Panel::machineDesignation()
{
    const std::string place = basic::decimal(std::int32_t{number(machineVariable)});
    const Variant* const name = variables_->find(std::string{designationVariable}.append(place).append(">"));
    const auto* const text = name == nullptr ? nullptr : name->get<std::string>();
    return text == nullptr ? std::string{} : *text;
}

} // namespace servopanel::panel
