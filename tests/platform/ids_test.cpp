#include "platform/ids.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace {

using namespace servopanel::platform;

struct Row {
    std::string_view className;
    Member member;
    std::string_view name;
    std::uint32_t id;
    MemberKind kind;
};

constexpr auto property = MemberKind::Property;
constexpr auto method = MemberKind::Method;

// The contract with the controls.
const Row rows[]{
    {"Extender", ids::Extender::Left, "Left", 0x80010003, property},
    {"Extender", ids::Extender::Top, "Top", 0x80010004, property},
    {"Extender", ids::Extender::Width, "Width", 0x80010005, property},
    {"Extender", ids::Extender::Height, "Height", 0x80010006, property},
    {"Extender", ids::Extender::Visible, "Visible", 0x80010007, property},
    {"Extender", ids::Extender::Enabled, "Enabled", 0x8001000D, property},
    {"VWSVarIn", ids::VWSVarIn::VariablenName, "VariablenName", 7, property},
    {"VWSVarIn", ids::VWSVarIn::Wert, "Wert", 8, property},
    {"VWSVarIn", ids::VWSVarIn::Obergrenze, "Obergrenze", 21, property},
    {"VWSVarIn", ids::VWSVarIn::Untergrenze, "Untergrenze", 22, property},
    {"VWSVarIn", ids::VWSVarIn::Vordergrund, "Vordergrund", 0xFFFFFDFF, property},
    {"VWSVarOut", ids::VWSVarOut::Wert, "Wert", 8, property},
    {"VWSIndex", ids::VWSIndex::Hintergrund, "Hintergrund", 17, property},
    {"VWSIndex", ids::VWSIndex::Farbe, "Farbe", 19, property},
    {"VWSIndex", ids::VWSIndex::Text, "Text", 28, property},
    {"VWSLanguage", ids::VWSLanguage::Text, "Text", 34, method},
    {"Fusszeile", ids::Fußzeile::Freigabe, "Freigabe", 0x68030004, method},
    {"Fusszeile", ids::Fußzeile::TextNummer, "TextNummer", 0x68030005, method},
    {"Fusszeile", ids::Fußzeile::Farbe, "Farbe", 0x68030006, method},
    {"Fusszeile", ids::Fußzeile::Bild, "Bild", 0x68030007, method},
    {"Fusszeile", ids::Fußzeile::Einstellung, "Einstellung", 0x68030008, method},
    {"Eingabemaske", ids::Eingabemaske::Offen, "Offen", 0x68030000, property},
    {"Eingabemaske", ids::Eingabemaske::Ziel, "Ziel", 0x68030001, property},
    {"IniEingabe", ids::IniEingabe::Pass, "Pass", 0x68030004, property},
    {"IniEingabe", ids::IniEingabe::Max, "Max", 0x68030005, property},
    {"IniEingabe", ids::IniEingabe::Min, "Min", 0x68030006, property},
    {"IniEingabe", ids::IniEingabe::Offen, "Offen", 0x68030009, property},
    {"ScrollBar", ids::ScrollBar::Position, "Position", 0x68030000, property},
    {"ScrollBar", ids::ScrollBar::Seite, "Seite", 0x68030001, property},
    {"ScrollBar", ids::ScrollBar::Anzahl, "Anzahl", 0x68030002, property},
    {"ScrollBar", ids::ScrollBar::Rahmen, "Rahmen", 0x68030004, property},
    {"ScrollBar", ids::ScrollBar::Aktiv, "Aktiv", 0x68030006, property},
    {"ScrollBar", ids::ScrollBar::Gesperrt, "Gesperrt", 0x68030007, property},
    {"Schalter", ids::Schalter::Zustand, "Zustand", 0x68030000, property},
    {"Schalter", ids::Schalter::Freigabe, "Freigabe", 0x68030001, property},
};

TEST(Ids, StayAsTheControlsKnowThem)
{
    for (const Row& row : rows) {
        EXPECT_EQ(static_cast<std::uint32_t>(row.member.id), row.id)
            << row.className << '.' << row.member.name;
        EXPECT_EQ(row.member.name, row.name) << row.className;
        EXPECT_EQ(row.member.kind, row.kind) << row.className << '.' << row.member.name;
        EXPECT_FALSE(row.member.isNamed()) << row.className << '.' << row.member.name;
    }
}

TEST(Ids, AreDifferentWithinAClass)
{
    std::set<std::pair<std::string_view, std::int32_t>> seen;
    for (const Row& row : rows)
        EXPECT_TRUE(seen.emplace(row.className, row.member.id).second)
            << row.className << '.' << row.member.name;
}

TEST(Names, AreMembersByNameAsTheControlsKnowThem)
{
    const std::pair<Member, std::string_view> members[]{{names::Left, "Left"}, {names::Top, "Top"},
        {names::Width, "Width"}, {names::Height, "Height"}, {names::Visible, "Visible"},
        {names::Enabled, "Enabled"}, {names::Caption, "Caption"}, {names::ForeColor, "ForeColor"},
        {names::Picture, "Picture"}, {names::Alignment, "Alignment"}, {names::FontClass, "FontClass"},
        {names::FontName, "Font.Name"}, {names::FontCharset, "Font.Charset"}, {names::FontBold, "Font.Bold"},
        {names::FontWeight, "Font.Weight"}, {names::FontSize, "Font.Size"}, {names::BildInit, "BildInit"},
        {names::BildShow, "BildShow"}, {names::SpracheGeandert, "SpracheGeandert"}};
    for (const auto& [member, name] : members) {
        EXPECT_EQ(member.name, name);
        EXPECT_TRUE(member.isNamed()) << name;
        EXPECT_EQ(member.kind, property) << name;
    }
}

} // namespace
