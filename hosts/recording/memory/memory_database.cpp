#include "recording/memory/memory_database.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "recording/memory/memory_disk.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace servopanel::recording {

namespace {

// Numbers of the database engine.
constexpr std::int32_t noEdit = 3020;
constexpr std::int32_t noCurrentRow = 3021;
constexpr std::int32_t noFile = 3024;
constexpr std::int32_t noTable = 3078;
constexpr std::int32_t rowDeleted = 3167;
constexpr std::int32_t updateFailed = 3260;
constexpr std::int32_t noColumn = 3265;

constexpr std::string_view tableName = "PRESET_DEFS";
constexpr std::string_view columnNames[]{
    "MACHINE_TYPE", "VAR_NAME", "OFFSET_OR_BITNO", "ABS_MIN", "ABS_MAX", "MIN", "MAX", "PASS"};

std::size_t columnNumber(std::string_view name)
{
    const std::string wanted = basic::upperCase(name);
    for (std::size_t i = 0; i < std::size(columnNames); ++i)
        if (columnNames[i] == wanted) return i;
    raiseError(noColumn, "No column '" + std::string{name} + "' in " + std::string{tableName});
}

bool sameElement(const basic::Variant& left, const basic::Variant& right)
{
    if (left == right) return true;
    try {
        return basic::toDouble(left) == basic::toDouble(right);
    } catch (const basic::Error&) {
        return false;
    }
}

class MemoryRows : public platform::RecordSet {
public:
    MemoryRows(std::shared_ptr<DefinitionTable> table, std::string file, Failures& failures)
        : table_{std::move(table)}
        , file_{std::move(file)}
        , failures_{failures}
    {
    }

    bool atEnd() override { return position_ >= table_->rows.size(); }
    void moveNext() override
    {
        edited_.reset();
        if (!atEnd()) ++position_;
    }
    basic::Variant field(std::string_view column) override
    {
        const std::size_t number = columnNumber(column);
        return current().columns[number];
    }
    basic::Variant bookmark() override
    {
        basic::Array bytes{basic::VariantType::Byte, 0, {}};
        for (auto rest = static_cast<std::uint32_t>(current().id); bytes.elements.size() < 4; rest >>= 8U)
            bytes.elements.emplace_back(static_cast<std::uint8_t>(rest & 0xFFU));
        return bytes;
    }
    void moveTo(const basic::Variant& bookmark) override
    {
        edited_.reset();
        position_ = table_->rows.size();
        const std::uint32_t id = idOf(bookmark);
        const auto row = std::find_if(table_->rows.begin(), table_->rows.end(),
            [id](const DefinitionRow& candidate) { return static_cast<std::uint32_t>(candidate.id) == id; });
        position_ = static_cast<std::size_t>(row - table_->rows.begin());
        if (atEnd()) raiseError(rowDeleted, file_ + ": the row is deleted");
    }
    void edit() override { edited_ = current(); }
    void setField(std::string_view column, const basic::Variant& value) override
    {
        const std::size_t number = columnNumber(column);
        if (!edited_) raiseError(noEdit, file_ + ": no row is being edited");
        edited_->columns[number] = value;
    }
    void update() override
    {
        if (!edited_) raiseError(noEdit, file_ + ": no row is being edited");
        if (failures_.take(FailureKind::UpdateRow, {})) {
            edited_.reset();
            raiseError(updateFailed, file_ + ": the row cannot be updated");
        }
        current() = *std::exchange(edited_, std::nullopt);
    }

private:
    DefinitionRow& current()
    {
        if (atEnd()) raiseError(noCurrentRow, file_ + ": no current row");
        return table_->rows[position_];
    }
    static std::uint32_t idOf(const basic::Variant& bookmark)
    {
        std::uint32_t id = 0;
        for (std::int32_t i = 3; i >= 0; --i)
            id = (id << 8U) | basic::toByte(basic::element(bookmark, i));
        return id;
    }

    std::shared_ptr<DefinitionTable> table_;
    std::string file_;
    Failures& failures_;
    std::size_t position_ = 0;
    std::optional<DefinitionRow> edited_;
};

class MemoryDatabase : public platform::Database {
public:
    MemoryDatabase(std::shared_ptr<DefinitionTable> table, std::string file, Failures& failures)
        : table_{std::move(table)}
        , file_{std::move(file)}
        , failures_{failures}
    {
    }
    std::unique_ptr<platform::RecordSet> openRecordSet(std::string_view query) override
    {
        if (query.find(tableName) == std::string_view::npos) raiseError(noTable, file_ + ": no such table");
        return std::make_unique<MemoryRows>(table_, file_, failures_);
    }
    void close() override { }

private:
    std::shared_ptr<DefinitionTable> table_;
    std::string file_;
    Failures& failures_;
};

} // namespace

void MemoryDatabases::create(std::string_view path)
{
    tables_.insert_or_assign(normalisedPath(path), std::make_shared<DefinitionTable>());
}

void MemoryDatabases::remove(std::string_view path) { tables_.erase(normalisedPath(path)); }

void MemoryDatabases::addRow(std::string_view path, DefinitionRow row)
{
    std::shared_ptr<DefinitionTable>& table = tables_[normalisedPath(path)];
    if (!table) table = std::make_shared<DefinitionTable>();
    row.id = ++table->lastId;
    table->rows.push_back(std::move(row));
}

bool MemoryDatabases::removeRow(
    std::string_view path, std::string_view variable, const basic::Variant& element)
{
    const auto table = tables_.find(normalisedPath(path));
    if (table == tables_.end()) return false;
    std::vector<DefinitionRow>& rows = table->second->rows;
    const auto removed = std::remove_if(rows.begin(), rows.end(), [&](const DefinitionRow& row) {
        const auto* name = row.columns[DefinitionRow::Variable].get<std::string>();
        return name && *name == variable && sameElement(row.columns[DefinitionRow::Element], element);
    });
    const bool found = removed != rows.end();
    rows.erase(removed, rows.end());
    return found;
}

std::unique_ptr<platform::Database> MemoryDatabases::open(std::string_view path)
{
    const auto table = tables_.find(normalisedPath(path));
    if (table == tables_.end()) raiseError(noFile, "Could not find file '" + std::string{path} + "'");
    return std::make_unique<MemoryDatabase>(table->second, std::string{path}, failures_);
}

} // namespace servopanel::recording
