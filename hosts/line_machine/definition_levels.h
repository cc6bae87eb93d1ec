#pragma once

#include "jet/definition_row.h"
#include "mqtt/description.h"

#include <string_view>
#include <vector>

namespace servopanel::line_machine {

// Gives the variables the access levels ("Pass") that the project's parameter definitions have for their elements, or for
// the bits of a switch word. As on the page, rows of other machine types are passed over, capitals in names do not matter,
// and of two rows for one element the last counts. What has no definition keeps level 0; a level that cannot be read is the
// highest.
mqtt::Description withLevels(const mqtt::Description& description, std::string_view machine,
    const std::vector<jet::DefinitionRow>& definitions);

} // namespace servopanel::line_machine
