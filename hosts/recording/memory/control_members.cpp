#include "recording/memory/control_members.h"

#include "basic/text.h"
#include "platform/form_data.h"
#include "platform/ids.h"

namespace servopanel::recording {

namespace {

namespace classes = platform::classes;
namespace ids = platform::ids;
namespace names = platform::names;

constexpr ControlProperty common[]{
    {ids::Extender::Left, Holds::Single},
    {ids::Extender::Top, Holds::Single},
    {ids::Extender::Width, Holds::Single},
    {ids::Extender::Height, Holds::Single},
    {ids::Extender::Visible, Holds::Boolean},
    {ids::Extender::Enabled, Holds::Boolean},
    {names::FontName, Holds::Text},
    {names::FontCharset, Holds::Int16},
    {names::FontBold, Holds::Boolean},
    {names::FontWeight, Holds::Int16},
    {names::FontSize, Holds::Single},
};
constexpr ControlProperty varIn[]{
    {ids::VWSVarIn::VariablenName, Holds::Text},
    {ids::VWSVarIn::Wert, Holds::AnyValue},
    {ids::VWSVarIn::Obergrenze, Holds::Text},
    {ids::VWSVarIn::Untergrenze, Holds::Text},
    {ids::VWSVarIn::Vordergrund, Holds::Int32},
};
constexpr ControlProperty varOut[]{{ids::VWSVarOut::Wert, Holds::AnyValue}};
constexpr ControlProperty index[]{
    {ids::VWSIndex::Hintergrund, Holds::Int32},
    {ids::VWSIndex::Farbe, Holds::Int32},
    {ids::VWSIndex::Text, Holds::Text},
    {names::FontClass, Holds::Text},
    {names::Alignment, Holds::Int16},
};
constexpr ControlProperty maske[]{
    {ids::Eingabemaske::Offen, Holds::Boolean},
    {ids::Eingabemaske::Ziel, Holds::Object},
};
constexpr ControlProperty iniEingabe[]{
    {ids::IniEingabe::Pass, Holds::Int16},
    {ids::IniEingabe::Max, Holds::Double},
    {ids::IniEingabe::Min, Holds::Double},
    {ids::IniEingabe::Offen, Holds::Boolean},
};
constexpr ControlProperty scrollBar[]{
    {ids::ScrollBar::Position, Holds::Int16},
    {ids::ScrollBar::Seite, Holds::Int16},
    {ids::ScrollBar::Anzahl, Holds::Int16},
    {ids::ScrollBar::Rahmen, Holds::Int16},
    {ids::ScrollBar::Aktiv, Holds::Boolean},
    {ids::ScrollBar::Gesperrt, Holds::Boolean},
};
constexpr ControlProperty schalter[]{
    {ids::Schalter::Zustand, Holds::AnyValue},
    {ids::Schalter::Freigabe, Holds::Boolean},
};
constexpr ControlProperty label[]{
    {names::Caption, Holds::Text},
    {names::ForeColor, Holds::Int32},
    {names::Alignment, Holds::Int16},
};
constexpr ControlProperty picture[]{{names::Picture, Holds::Picture}};

struct ClassRow {
    std::string_view className;
    std::span<const ControlProperty> own;
};
constexpr ClassRow classTable[]{
    {classes::VWSVarIn, varIn},
    {classes::VWSVarOut, varOut},
    {classes::VWSIndex, index},
    {classes::VWSLangSelect, index},
    {classes::Eingabemaske, maske},
    {classes::IniEingabe, iniEingabe},
    {classes::ScrollBar, scrollBar},
    {classes::Schalter, schalter},
    {classes::Label, label},
    {classes::PictureBox, picture},
    {classes::VWSPicBox, picture},
    {classes::ServoMain, picture},
    {classes::ServoMenu, picture},
    {"Servo", picture},
};

bool isMeant(const ControlProperty& property, const platform::Member& member)
{
    if (!member.isNamed()) return property.member.id == member.id;
    // Capitals are as long as small letters.
    const std::string_view own = property.member.name;
    return own.size() == member.name.size()
        && (own == member.name || basic::upperCase(own) == basic::upperCase(member.name));
}

} // namespace

std::span<const ControlProperty> commonProperties() { return common; }

std::span<const ControlProperty> ownProperties(std::string_view className)
{
    for (const ClassRow& row : classTable)
        if (row.className == className) return row.own;
    return {};
}

const ControlProperty* findProperty(std::string_view className, const platform::Member& member)
{
    for (const ControlProperty& property : ownProperties(className))
        if (isMeant(property, member)) return &property;
    for (const ControlProperty& property : commonProperties())
        if (isMeant(property, member)) return &property;
    return nullptr;
}

} // namespace servopanel::recording
