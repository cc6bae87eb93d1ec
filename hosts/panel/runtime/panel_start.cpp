// What a panel begins with: settings, what the operator chose before, and what the panel before it held.
#include "basic/conversions.h"
#include "journal/journaled_variables.h"
#include "machine/carry_over.h"
#include "panel/runtime/broker_connection.h"
#include "panel/runtime/panel.h"
#include "panel/runtime/panel_variables.h"

namespace servopanel::panel {

using basic::Variant;

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
        if (connection_ && write.name == levelVariable) connection_->setLevel(number(levelVariable));
    });
}

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
    return std::make_shared<const Held>(Held{file_, variables_, choices(), journalFile_});
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

void Panel::setVariable(std::string_view name, const Variant& value)
{
    if (variables_->find(name) == nullptr)
        variables_->declare(name, value);
    else
        mirror(name, value);
}

void Panel::setShownServo(std::int16_t place) { setVariable(servoVariable, Variant{place}); }

void Panel::setLevel(std::int16_t level) { setVariable(levelVariable, Variant{level}); }

} // namespace servopanel::panel
