#pragma once

namespace servopanel::panel {

class ControlHost;

// Lines of captions stand as far apart as Latin letters are high; where those of another script would run into the next
// line they are shown smaller. Only what the operator sees changes, never a property of a control.
void separateCaptionLines(ControlHost& page);

} // namespace servopanel::panel
