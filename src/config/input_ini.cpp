#include "config/mservice.h"

#include "basic/text.h"

namespace servopanel::config {

std::string MService::InputIniString(std::string_view sektion, std::string_view eintrag, bool melden)
{
    return FindeIniEintrag(sektion, eintrag, melden);
}

bool MService::InputIniBoolean(std::string_view sektion, std::string_view eintrag, bool melden)
{
    return basic::upperCase(FindeIniEintrag(sektion, eintrag, melden)) == "TRUE";
}

} // namespace servopanel::config
