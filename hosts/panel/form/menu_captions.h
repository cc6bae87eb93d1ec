#pragma once

namespace servopanel::panel {

class ControlHost;

// At 1024 pixels the right column of the menu's keys reaches below the scroll bar. Their names end before it, so that they
// can be read in every direction of writing. Only what the operator sees changes, never a property of a control.
void keepCaptionsClearOfScrollBar(ControlHost& menu);

} // namespace servopanel::panel
