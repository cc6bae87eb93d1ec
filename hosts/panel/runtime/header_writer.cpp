#include "panel/runtime/header_writer.h"

#include "basic/error.h"
#include "panel/form/definition_mode.h"
#include "panel/form/vws_index.h"
#include "panel/form/vws_var.h"
#include "panel/runtime/link_quality.h"
#include "panel/runtime/panel_variables.h"

#include <array>

namespace servopanel::panel {

namespace {

} // namespace

HeaderWriter::HeaderWriter(WatchedVariables& variables, const Languages& languages, PanelWords words)
    : variables_{variables}
    , languages_{languages}
    , words_{std::move(words)}
{
}

// The last known text: next to it the header says itself that the link is bad.
QString HeaderWriter::value(const std::string& variable)
{
    try {
        return last_[variable] = valueText(variables_.look(variable));
    } catch (const basic::Error&) {
        const auto last = last_.find(variable);
        return last == last_.end() || last->second.isEmpty() ? QStringLiteral("–") : last->second;
    }
}

HeaderTexts HeaderWriter::write(const QString& title, ControlHost* part)
{
    HeaderTexts texts;
    texts.title = title;
    const std::string number = value(std::string{machineVariable}).toStdString();
    const QString designation = value(std::string{designationVariable}.append(number).append(">"));
    const std::string* const name = languages_.find("Panel.Machine." + designation.toStdString());
    texts.machine = words_(PanelText::Machine) + u' ' + designation;
    if (name != nullptr) texts.machine += QStringLiteral(" – ") + QString::fromStdString(*name);
    texts.level = words_(PanelText::AccessLevel) + u' ' + value(std::string{levelVariable});
    if (part != nullptr)
        if (auto* heading = dynamic_cast<VWSIndex*>(part->find("Überschrift")))
            texts.shown = heading->shown();
    if (part != nullptr && changesDefinitions(*part)) texts.mode = words_(PanelText::DefinitionMode);
    texts.quality = linkQuality(variables_, part);
    constexpr std::array words{PanelText::LinkGood, PanelText::LinkPartly, PanelText::LinkBad};
    texts.link = words_(words[static_cast<std::size_t>(texts.quality)]);
    return texts;
}

} // namespace servopanel::panel
