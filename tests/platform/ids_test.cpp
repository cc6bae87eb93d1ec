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
    std::uint32_t id;
    MemberKind kind;
};

constexpr auto property = MemberKind::Property;
constexpr auto method = MemberKind::Method;

// The contract with the controls.
const Row rows[]{
    {"Extender", ids::Extender::Left, 0x80010003, property},
    {"Extender", ids::Extender::Top, 0x80010004, property},
    {"Extender", ids::Extender::Width, 0x80010005, property},
    {"Extender", ids::Extender::Height, 0x80010006, property},
    {"Extender", ids::Extender::Visible, 0x80010007, property},
    {"Extender", ids::Extender::Enabled, 0x8001000D, property},
    {"VWSVarIn", ids::VWSVarIn::VariablenName, 7, property},
    {"VWSVarIn", ids::VWSVarIn::Wert, 8, property},
    {"VWSVarIn", ids::VWSVarIn::Obergrenze, 21, property},
    {"VWSVarIn", ids::VWSVarIn::Untergrenze, 22, property},
    {"VWSVarIn", ids::VWSVarIn::Vordergrund, 0xFFFFFDFF, property},
    {"VWSVarOut", ids::VWSVarOut::Wert, 8, property},
    {"VWSIndex", ids::VWSIndex::Hintergrund, 17, property},
    {"VWSIndex", ids::VWSIndex::Farbe, 19, property},
    {"VWSIndex", ids::VWSIndex::Text, 28, property},
    {"VWSLanguage", ids::VWSLanguage::Text, 34, method},
    {"Fusszeile", ids::Fußzeile::Freigabe, 0x68030004, method},
    {"Fusszeile", ids::Fußzeile::TextNummer, 0x68030005, method},
    {"Fusszeile", ids::Fußzeile::Farbe, 0x68030006, method},
    {"Fusszeile", ids::Fußzeile::Bild, 0x68030007, method},
    {"Fusszeile", ids::Fußzeile::Einstellung, 0x68030008, method},
    {"Eingabemaske", ids::Eingabemaske::Offen, 0x68030000, property},
    {"Eingabemaske", ids::Eingabemaske::Ziel, 0x68030001, property},
    {"IniEingabe", ids::IniEingabe::Pass, 0x68030004, property},
    {"IniEingabe", ids::IniEingabe::Max, 0x68030005, property},
    {"IniEingabe", ids::IniEingabe::Min, 0x68030006, property},
    {"IniEingabe", ids::IniEingabe::Offen, 0x68030009, property},
    {"ScrollBar", ids::ScrollBar::Position, 0x68030000, property},
    {"ScrollBar", ids::ScrollBar::Seite, 0x68030001, property},
    {"ScrollBar", ids::ScrollBar::Anzahl, 0x68030002, property},
    {"ScrollBar", ids::ScrollBar::Rahmen, 0x68030004, property},
    {"ScrollBar", ids::ScrollBar::Aktiv, 0x68030006, property},
    {"ScrollBar", ids::ScrollBar::Gesperrt, 0x68030007, property},
    {"Schalter", ids::Schalter::Zustand, 0x68030000, property},
    {"Schalter", ids::Schalter::Freigabe, 0x68030001, property},
};

TEST(Ids, StayAsTheControlsKnowThem)
{
    for (const Row& row : rows) {
        EXPECT_EQ(static_cast<std::uint32_t>(row.member.id), row.id)
            << row.className << '.' << row.member.name;
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

TEST(Names, AreMembersByName)
{
    for (const Member& member : {names::Left, names::Top, names::Width, names::Height, names::Visible,
             names::Enabled, names::Caption, names::ForeColor, names::Picture, names::Alignment,
             names::FontClass, names::FontName, names::FontCharset, names::FontBold, names::FontWeight,
             names::FontSize, names::BildInit, names::BildShow, names::SpracheGeandert}) {
        EXPECT_TRUE(member.isNamed()) << member.name;
        EXPECT_EQ(member.kind, property) << member.name;
        EXPECT_FALSE(member.name.empty());
    }
    EXPECT_EQ(names::FontSize.name, "Font.Size");
    EXPECT_EQ(names::FontWeight.name, "Font.Weight");
}

} // namespace
