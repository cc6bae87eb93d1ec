#include "config/mservo_modul.h"

namespace servopanel::config {

MServoModul::MServoModul(display::Umfeld& umfeld, display::MGlobal& global)
    : umfeld_{umfeld}
    , global_{global}
    , paramDefs_{std::make_unique<basic::CheckedArray<ParamDef, höchsteParamDefAnzahl>>()}
{
}

} // namespace servopanel::config
