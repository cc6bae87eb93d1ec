#include "jet/cell_patch.h"
#include "jet/changed_file.h"
#include "jet/number_coding.h"
#include "jet/sample_definitions.h"

#include <gtest/gtest.h>

#include <csignal>
#include <random>
#include <unistd.h>

namespace servopanel::jet {

namespace {

using namespace testing;

// Ends the test program when damage makes anything run forever.
class TimeLimit {
public:
    explicit TimeLimit(unsigned seconds) { ::alarm(seconds); }
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;
    ~TimeLimit() { ::alarm(0); }
};

// libmdb complains about damage on the standard error output, thousands of times here.
class QuietErrors {
public:
    QuietErrors()
        : kept_{::dup(STDERR_FILENO)}
    {
        if (std::freopen("/dev/null", "w", stderr) == nullptr) throw std::runtime_error{"no /dev/null"};
    }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;
    ~QuietErrors()
    {
        std::fflush(stderr);
        ::dup2(kept_, STDERR_FILENO);
        ::close(kept_);
    }

private:
    int kept_;
};

struct Outcome {
    int read = 0;
    int refused = 0;
};

// Reads a database and changes what can be changed. Everything but a database error passes through and fails the test.
void use(const Bytes& bytes, Outcome& outcome)
{
    try {
        FileImage image{bytes};
        const Table table = readDefinitions(image);
        ++outcome.read;
        for (std::size_t row = 0; row < std::min<std::size_t>(table.rows.size(), 100); ++row) {
            try {
                for (const Patch& patch : patchesFor(image, table, row, table.column("Max"), 1.5))
                    image.change(patch.page, patch.at, patch.content);
            } catch (const basic::Error&) {
                continue;
            }
        }
    } catch (const basic::Error& error) {
        EXPECT_FALSE(error.description.empty());
        ++outcome.refused;
    }
}

Bytes damaged(const Bytes& good, std::size_t pageSize, std::mt19937& random)
{
    const auto below = [&](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>{0, limit - 1}(random);
    };
    Bytes bytes = good;
    switch (below(6)) {
    case 0: // single bits
        for (std::size_t i = 0; i < 1 + below(20); ++i) {
            std::uint8_t& byte = bytes[below(bytes.size())];
            byte = static_cast<std::uint8_t>(byte ^ (1U << below(8)));
        }
        break;
    case 1: // bytes where the structure is: heads of pages
        for (std::size_t i = 0; i < 1 + below(8); ++i)
            bytes[pageSize * below(bytes.size() / pageSize) + below(120)] =
                static_cast<std::uint8_t>(below(256));
        break;
    case 2: // a part without content
    case 3: {
        const std::size_t at = below(bytes.size());
        const auto fill = static_cast<std::uint8_t>(below(2) == 0 ? 0x00 : 0xFF);
        std::fill_n(
            bytes.begin() + static_cast<std::ptrdiff_t>(at), std::min(bytes.size() - at, below(5000)), fill);
        break;
    }
    case 4: // whole pages in the wrong place
        std::swap_ranges(bytes.begin() + static_cast<std::ptrdiff_t>(pageSize * (1 + below(3))),
            bytes.begin() + static_cast<std::ptrdiff_t>(pageSize * 4),
            bytes.begin() + static_cast<std::ptrdiff_t>(pageSize * 4));
        break;
    default: bytes.resize(pageSize * below(bytes.size() / pageSize)); break;
    }
    return bytes;
}

TEST(Damage, IsAnErrorAndNeverACrashOrAHang)
{
    const TimeLimit limit{110};
    const QuietErrors quiet;
    std::mt19937 random{20000};
    Outcome outcome;
    for (const NewDatabaseOptions& form : allForms()) {
        const Bytes good = newDefinitionDatabase(sampleRows(60), form);
        for (int i = 0; i < 400; ++i)
            use(damaged(good, formatOf(form.version).pageSize, random), outcome);
    }
    std::printf("2000 damaged files: %d could be read, %d were refused\n", outcome.read, outcome.refused);
    EXPECT_GT(outcome.refused, 500);
    EXPECT_GT(outcome.read, 100);
}

class KnownDamage : public ::testing::TestWithParam<JetVersion> {
protected:
    // The reason for refusing the file.
    std::string reason()
    {
        const TimeLimit limit{30};
        const basic::Error error = errorOf([&] { readDefinitions(FileImage{file.bytes()}); });
        return error.description;
    }
    std::uint32_t mapRow(std::uint16_t slot) const
    {
        return file.get16(mapsAt, file.format().rowTable + 2U * slot) & rowStartMask;
    }

    ChangedFile file{newDefinitionDatabase(sampleRows(60), {.version = GetParam()})};
    static constexpr const char* brokenList =
        "the database is damaged: the list of a table's pages is broken";
};

TEST_P(KnownDamage, OfAMapThatIsTooShort)
{
    // Three bytes are left of it.
    file.put(mapsAt, file.format().rowTable, file.format().pageSize - 3, 2);
    EXPECT_EQ(reason(), brokenList);
}

TEST_P(KnownDamage, OfAMapOfUnknownType)
{
    file.put(mapsAt, mapRow(0), 7, 1);
    EXPECT_EQ(reason(), brokenList);
}

TEST_P(KnownDamage, OfAMapWhosePagesAreMapsOfThemselves)
{
    file.put(mapsAt, mapRow(0), 1, 1);
    for (std::size_t i = 0; i < 16; ++i)
        file.put(mapsAt, mapRow(0) + 1 + 4 * i, mapsAt, 4);
    EXPECT_EQ(reason(), "the database is damaged: row 1 of 60 is missing");
}

TEST_P(KnownDamage, OfAMapThatIsMissing)
{
    file.put(definitionAt, file.format().tableOwnedPages, 0x00FFFF00, 4);
    EXPECT_EQ(reason(), "the database is damaged: page 5 is no definition of a table");
}

TEST_P(KnownDamage, OfADefinitionThatContinuesInItself)
{
    file.put(definitionAt, definitionNextPage, definitionAt, 4);
    EXPECT_EQ(reason(), "the database is damaged: page 5 is no definition of a table");
}

TEST_P(KnownDamage, OfMoreColumnsThanThereCanBe)
{
    file.put(definitionAt, file.format().tableColumns, 60000, 2);
    EXPECT_EQ(reason(), "the database is damaged: a table has more columns or indexes than there can be");
}

TEST_P(KnownDamage, OfAPageWithMoreRowsThanFit)
{
    file.put(firstRowsAt, file.format().rowCount, 60000, 2);
    EXPECT_EQ(reason(), "the database is damaged: the bounds of the row make no sense");
}

TEST_P(KnownDamage, OfARowThatIsLongerThanThePage)
{
    file.put(firstRowsAt, file.format().rowTable, 0x1FFF, 2);
    EXPECT_EQ(reason(), "the database is damaged: row 59 of 60 is missing");
}

TEST_P(KnownDamage, OfColumnsWithOtherTypesThanTheirValues)
{
    for (std::size_t type = 0; type < 32; ++type) {
        for (std::size_t column = 0; column < 8; ++column) {
            file = ChangedFile{newDefinitionDatabase(sampleRows(60), {.version = GetParam()})};
            const std::size_t entry = file.format().tableEntries + column * file.format().columnEntrySize;
            const auto own = static_cast<ColumnType>(file.get16(definitionAt, entry) & 0xFF);
            file.put(definitionAt, entry, type, 1);
            Outcome outcome;
            use(file.bytes(), outcome);
            const auto changed = static_cast<ColumnType>(type);
            const bool isKnown =
                numberSize(changed) != 0 || changed == ColumnType::Boolean || changed == ColumnType::Text;
            EXPECT_EQ(outcome.read + outcome.refused, 1) << type << " of column " << column;
            EXPECT_TRUE(changed != own || outcome.read == 1) << column;
            EXPECT_TRUE(isKnown || outcome.refused == 1) << type << " of column " << column;
        }
    }
}

TEST_P(KnownDamage, OfATableThatListsItselfAsTheCatalogue)
{
    // The catalogue's entry of the table names the catalogue's own page.
    const Table catalog = readTable(file.image(), "PRESET_DEFS");
    EXPECT_EQ(catalog.page, definitionAt);
    const std::uint16_t start = file.get16(4, file.format().rowTable + 2U * 4) & rowStartMask;
    file.put(4, start + file.format().columnCountSize, catalogPage, 4);
    EXPECT_EQ(reason(), "its table has no column 'machine_type'");
}

INSTANTIATE_TEST_SUITE_P(Both, KnownDamage, ::testing::Values(JetVersion::Jet3, JetVersion::Jet4),
    [](const auto& form) { return form.param == JetVersion::Jet3 ? "Jet3" : "Jet4"; });

} // namespace

} // namespace servopanel::jet
