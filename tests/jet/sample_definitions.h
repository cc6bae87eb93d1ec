#pragma once

#include "basic/error.h"
#include "jet/definition_row.h"
#include "jet/jet_engine.h"
#include "portable/path_mapping.h"
#include "portable/temporary_folder.h"

#include <bit>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::jet::testing {

// Definitions with every kind of value that tends to go wrong: no value at all, empty texts, umlauts, names of any
// length, numbers that have no short decimal form.
inline std::vector<DefinitionRow> sampleRows(std::size_t count)
{
    std::vector<DefinitionRow> rows;
    for (std::size_t i = 0; i < count; ++i) {
        const auto number = static_cast<std::int16_t>(i);
        const double x = static_cast<double>(i);
        DefinitionRow row;
        row.machineType = std::string{i % 3 == 0 ? "M1" : "M2"};
        row.variable = "Ch1.M_T_servo_" + std::to_string(i / 20) + "<.m_servo_pära_" + std::to_string(i / 20)
            + ">" + std::string(i % 7 == 0 ? i % 90 : 0, 'x');
        row.absMax = x / 3 + 1e-3;
        row.absMin = -x / 7;
        row.element = static_cast<std::int16_t>(number % 20);
        row.max = x * 0.1;
        row.min = i % 5 == 0 ? -0.0 : 1e300 / (x + 1);
        row.pass = static_cast<std::int16_t>(i % 6);
        if (i % 11 == 10) row.max = basic::Null{};
        if (i % 13 == 12) row.pass = basic::Null{};
        if (i % 17 == 16) row.machineType = std::string{};
        if (i % 19 == 18) row.machineType = basic::Null{};
        rows.push_back(row);
    }
    return rows;
}

inline void writeFile(const std::filesystem::path& file, const Bytes& bytes)
{
    std::ofstream out{file, std::ios::binary};
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!out) throw std::runtime_error{"cannot write " + file.string()};
}

inline Bytes bytesOf(const std::filesystem::path& file)
{
    const std::string content = tests::contentOf(file);
    return {content.begin(), content.end()};
}

// Everything that the record set of a database gives, in its order.
inline std::vector<DefinitionRow> rowsOf(platform::RecordSet& records)
{
    std::vector<DefinitionRow> rows;
    for (; !records.atEnd(); records.moveNext())
        rows.push_back({records.field("machine_type"), records.field("var_name"), records.field("abs_max"),
            records.field("abs_min"), records.field("offset_or_bitno"), records.field("Max"),
            records.field("Min"), records.field("Pass")});
    return rows;
}

// Rows as texts that differ when any bit of a value does.
inline std::vector<std::string> exactly(const std::vector<DefinitionRow>& rows)
{
    const auto text = [](const basic::Variant& value) -> std::string {
        if (const auto* number = value.get<double>())
            return std::to_string(std::bit_cast<std::uint64_t>(*number));
        if (const auto* number = value.get<std::int16_t>()) return std::to_string(*number);
        if (const auto* words = value.get<std::string>()) return '"' + *words + '"';
        return value.holds<basic::Null>() ? "Null" : "another type";
    };
    std::vector<std::string> texts;
    for (const DefinitionRow& row : rows)
        texts.push_back(text(row.machineType) + ' ' + text(row.variable) + ' ' + text(row.absMax) + ' '
            + text(row.absMin) + ' ' + text(row.element) + ' ' + text(row.max) + ' ' + text(row.min) + ' '
            + text(row.pass));
    return texts;
}

// What an expression raises; number 0 when it succeeds.
template <class F>
basic::Error errorOf(F expression)
{
    try {
        (void)expression();
        return {};
    } catch (const basic::Error& error) {
        return error;
    }
}

// A project folder with the database Servo.mdb.
class SampleProject {
public:
    static constexpr std::string_view query = "SELECT PRESET_DEFS.* FROM PRESET_DEFS";

    explicit SampleProject(const Bytes& database) { writeFile(file(), database); }
    explicit SampleProject(const std::vector<DefinitionRow>& rows, const NewDatabaseOptions& options = {})
        : SampleProject{newDefinitionDatabase(rows, options)}
    {
    }

    std::filesystem::path folder() const { return folder_.path(); }
    std::filesystem::path file() const { return folder_.path() / "Servo.mdb"; }
    std::unique_ptr<platform::Database> open() { return engine_.open("Servo.mdb"); }

    std::vector<DefinitionRow> rows()
    {
        const auto database = open();
        return rowsOf(*database->openRecordSet(query));
    }
    // The bookmark of a row that a reader keeps while the file is closed.
    basic::Variant bookmark(std::size_t row)
    {
        const auto database = open();
        const auto records = database->openRecordSet(query);
        for (; row > 0; --row)
            records->moveNext();
        return records->bookmark();
    }
    // One session of the writing kind: opens, changes one column of the row of a bookmark, closes.
    void change(const basic::Variant& bookmark, std::string_view column, const basic::Variant& value)
    {
        const auto database = open();
        const auto records = database->openRecordSet(query);
        records->moveTo(bookmark);
        records->edit();
        records->setField(column, value);
        records->update();
        database->close();
    }

private:
    tests::TemporaryFolder folder_;
    portable::PathMapping mapping_{folder_.path()};
    JetEngine engine_{mapping_};
};

// Both formats, plain and encoded, texts in both forms.
inline std::vector<NewDatabaseOptions> allForms()
{
    constexpr std::uint32_t key = 0x1234ABCD;
    return {{.version = JetVersion::Jet3}, {.version = JetVersion::Jet3, .key = key},
        {.version = JetVersion::Jet4}, {.version = JetVersion::Jet4, .key = key},
        {.version = JetVersion::Jet4, .textForm = TextForm::Compressed}};
}

inline std::string nameOf(const NewDatabaseOptions& options)
{
    return std::string{options.version == JetVersion::Jet3 ? "Jet3" : "Jet4"}
    + (options.key != 0 ? "Encoded" : "") + (options.textForm == TextForm::Compressed ? "Compressed" : "");
}

} // namespace servopanel::jet::testing

namespace servopanel::jet {

// How GoogleTest shows the parameter of a test.
inline void PrintTo(JetVersion version, std::ostream* out)
{
    *out << (version == JetVersion::Jet3 ? "Jet3" : "Jet4");
}
inline void PrintTo(const NewDatabaseOptions& options, std::ostream* out)
{
    *out << testing::nameOf(options);
}

} // namespace servopanel::jet
