#include "recording/memory/memory_database.h"

#include "support/error_number.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

using namespace servopanel;
using namespace servopanel::recording;
using servopanel::testing::errorNumber;

constexpr std::string_view file = "C:\\Projekt\\Servo\\Servo.mdb";
constexpr std::string_view query = "SELECT PRESET_DEFS.* FROM PRESET_DEFS";

DefinitionRow row(const char* variable, std::int16_t element)
{
    DefinitionRow result;
    result.columns = {
        basic::Variant{"M1"}, basic::Variant{variable}, element, 0.0, 1000.0, 0.0, 100.0, std::int16_t{1}};
    return result;
}

struct MemoryDatabase : ::testing::Test {
    Failures failures;
    MemoryDatabases databases{failures};
    MemoryDatabase()
    {
        databases.addRow(file, row("A", 0));
        databases.addRow(file, row("B", 1));
        databases.addRow(file, row("C", 2));
    }
    std::unique_ptr<platform::RecordSet> rows() { return databases.open(file)->openRecordSet(query); }
    basic::Variant bookmarkOf(std::string_view variable)
    {
        const auto all = rows();
        while (all->field("var_name") != basic::Variant{variable})
            all->moveNext();
        return all->bookmark();
    }
};

TEST_F(MemoryDatabase, WalksTheRowsInOrder)
{
    const auto all = rows();
    std::string names;
    for (; !all->atEnd(); all->moveNext())
        names += *all->field("VAR_NAME").get<std::string>();
    EXPECT_EQ(names, "ABC");
    EXPECT_EQ(errorNumber([&] { return all->field("var_name"); }), 3021);
    EXPECT_EQ(errorNumber([&] { return all->bookmark(); }), 3021);
    EXPECT_EQ(errorNumber([&] { return all->edit(), 0; }), 3021);
}

TEST_F(MemoryDatabase, NamesItsColumns)
{
    const auto all = rows();
    EXPECT_EQ(all->field("machine_type"), basic::Variant{"M1"});
    EXPECT_EQ(all->field("offset_or_bitno"), basic::Variant{std::int16_t{0}});
    EXPECT_EQ(all->field("abs_min"), basic::Variant{0.0});
    EXPECT_EQ(all->field("abs_max"), basic::Variant{1000.0});
    EXPECT_EQ(all->field("Min"), basic::Variant{0.0});
    EXPECT_EQ(all->field("MAX"), basic::Variant{100.0});
    EXPECT_EQ(all->field("pass"), basic::Variant{std::int16_t{1}});
    EXPECT_EQ(errorNumber([&] { return all->field("other"); }), 3265);
}

TEST_F(MemoryDatabase, FindsARowAgainByItsBookmark)
{
    const basic::Variant bookmark = bookmarkOf("B");
    ASSERT_TRUE(bookmark.holds<basic::Array>());
    EXPECT_EQ(bookmark.get<basic::Array>()->elementType, basic::VariantType::Byte);
    const auto all = rows();
    all->moveTo(bookmark);
    EXPECT_EQ(all->field("var_name"), basic::Variant{"B"});
}

TEST_F(MemoryDatabase, KeepsABookmarkWhenOtherRowsGo)
{
    const basic::Variant bookmark = bookmarkOf("C");
    EXPECT_TRUE(databases.removeRow(file, "A", std::int16_t{0}));
    const auto all = rows();
    all->moveTo(bookmark);
    EXPECT_EQ(all->field("var_name"), basic::Variant{"C"});
}

TEST_F(MemoryDatabase, HasNoCurrentRowWhenTheBookmarksRowIsGone)
{
    const basic::Variant bookmark = bookmarkOf("B");
    EXPECT_TRUE(databases.removeRow(file, "B", 1.0));
    EXPECT_FALSE(databases.removeRow(file, "B", 1.0));
    const auto all = rows();
    EXPECT_EQ(errorNumber([&] { return all->moveTo(bookmark), 0; }), 3167);
    EXPECT_EQ(errorNumber([&] { return all->edit(), 0; }), 3021);
    databases.addRow(file, row("D", 3));
    EXPECT_EQ(errorNumber([&] { return all->moveTo(bookmark), 0; }), 3167);
}

TEST_F(MemoryDatabase, HasNoCurrentRowAfterABookmarkThatIsNone)
{
    const auto all = rows();
    all->moveTo(bookmarkOf("B"));
    EXPECT_NE(errorNumber([&] { return all->moveTo(basic::Variant{}), 0; }), 0);
    EXPECT_TRUE(all->atEnd());
    EXPECT_EQ(errorNumber([&] { return all->edit(), 0; }), 3021);
}

TEST_F(MemoryDatabase, ChangesARowAtItsUpdateOnly)
{
    const auto all = rows();
    EXPECT_EQ(errorNumber([&] { return all->setField("Pass", std::int16_t{5}), 0; }), 3020);
    EXPECT_EQ(errorNumber([&] { return all->update(), 0; }), 3020);
    all->edit();
    all->setField("Pass", std::int16_t{5});
    EXPECT_EQ(rows()->field("Pass"), basic::Variant{std::int16_t{1}});
    all->update();
    EXPECT_EQ(rows()->field("Pass"), basic::Variant{std::int16_t{5}});
}

TEST_F(MemoryDatabase, LosesAChangeWhenTheRowIsLeft)
{
    const auto all = rows();
    all->edit();
    all->setField("Pass", std::int16_t{5});
    all->moveNext();
    EXPECT_EQ(errorNumber([&] { return all->update(), 0; }), 3020);
    EXPECT_EQ(rows()->field("Pass"), basic::Variant{std::int16_t{1}});
}

TEST_F(MemoryDatabase, RefusesUpdatesAsArranged)
{
    failures.arrange(FailureKind::UpdateRow, {}, 1);
    const auto all = rows();
    all->edit();
    all->setField("Pass", std::int16_t{5});
    EXPECT_EQ(errorNumber([&] { return all->update(), 0; }), 3260);
    EXPECT_EQ(rows()->field("Pass"), basic::Variant{std::int16_t{1}});
    all->edit();
    all->update();
}

TEST_F(MemoryDatabase, OpensOnlyWhatIsThere)
{
    EXPECT_EQ(errorNumber([&] { return databases.open("C:\\No.mdb") != nullptr; }), 3024);
    EXPECT_EQ(errorNumber([&] { return databases.open(file)->openRecordSet("SELECT *") != nullptr; }), 3078);
    databases.create(file);
    EXPECT_TRUE(rows()->atEnd());
}

} // namespace
