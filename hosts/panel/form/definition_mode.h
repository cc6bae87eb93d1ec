#pragma once

namespace servopanel::panel {

class ControlHost;

// Whether touches on a page change limits and access levels instead of values. Its footer shows that mode.
bool changesDefinitions(ControlHost& page);

} // namespace servopanel::panel
