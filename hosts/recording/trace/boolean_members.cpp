#include "recording/trace/boolean_members.h"

#include "basic/text.h"
#include "platform/form_data.h"
#include "platform/ids.h"

namespace servopanel::recording {

namespace {

namespace classes = platform::classes;
namespace ids = platform::ids;
namespace names = platform::names;

struct BooleanProperty {
    std::string_view className; // empty: every class
    platform::Member member;
};

constexpr BooleanProperty booleanProperties[]{
    {{}, ids::Extender::Visible},
    {{}, ids::Extender::Enabled},
    {{}, names::Visible},
    {{}, names::Enabled},
    {{}, names::BildInit},
    {{}, names::BildShow},
    {{}, names::FontBold},
    {classes::Eingabemaske, ids::Eingabemaske::Offen},
    {classes::IniEingabe, ids::IniEingabe::Offen},
    {classes::ScrollBar, ids::ScrollBar::Aktiv},
    {classes::ScrollBar, ids::ScrollBar::Gesperrt},
    {classes::Schalter, ids::Schalter::Freigabe},
};

bool isSame(const platform::Member& left, const platform::Member& right)
{
    if (left.id != right.id) return false;
    return !left.isNamed() || basic::upperCase(left.name) == basic::upperCase(right.name);
}

} // namespace

ValueKind propertyKind(std::string_view className, const platform::Member& member)
{
    for (const BooleanProperty& row : booleanProperties)
        if ((row.className.empty() || row.className == className) && isSame(row.member, member))
            return ValueKind::Boolean;
    return ValueKind::Plain;
}

ValueKind argumentKind(std::string_view className, const platform::Member& member, std::size_t position)
{
    const bool isSwitch = className == classes::Fußzeile && member.id == ids::Fußzeile::Freigabe.id;
    return isSwitch && position == 1 ? ValueKind::Boolean : ValueKind::Plain;
}

} // namespace servopanel::recording
