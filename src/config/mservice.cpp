#include "config/mservice.h"

namespace servopanel::config {

MService::MService(display::Umfeld& umfeld)
    : umfeld_{umfeld}
    , speicher_{std::make_unique<IniSpeicher>()}
{
}

} // namespace servopanel::config
