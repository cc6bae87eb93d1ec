#include "jet/record_set.h"

#include "basic/conversions.h"
#include "jet/definition_table.h"
#include "jet/names.h"

#include <algorithm>
#include <utility>

namespace servopanel::jet {

DefinitionRecordSet::DefinitionRecordSet(std::shared_ptr<OpenDatabase> database, Table table)
    : database_{std::move(database)}
    , table_{std::move(table)}
{
}

bool DefinitionRecordSet::atEnd() { return position_ >= table_.rows.size(); }

void DefinitionRecordSet::moveNext()
{
    edited_.reset();
    reachedBy_.reset();
    if (!atEnd()) ++position_;
}

basic::Variant DefinitionRecordSet::field(std::string_view column)
{
    return database_->named([&] {
        const basic::Variant& value = table_.rows[current()].cells[table_.column(column)].value;
        if (value.holds<basic::ErrorCode>())
            raise(JetError::TypeMismatch,
                rowName(table_, position_) + ": column '" + std::string{column}
                    + "' has a type that cannot be read");
        return value;
    });
}

basic::Variant DefinitionRecordSet::bookmark()
{
    return database_->named([&] { return toBytes(bookmarkOf(table_, current())); });
}

void DefinitionRecordSet::moveTo(const basic::Variant& bytes)
{
    database_->named([&] {
        edited_.reset();
        reachedBy_.reset();
        position_ = table_.rows.size();
        const Bookmark bookmark = bookmarkFrom(bytes);
        const auto row = std::find_if(table_.rows.begin(), table_.rows.end(),
            [&](const TableRow& candidate) { return candidate.address == bookmark.address; });
        const std::string where = "the row that was read from page " + std::to_string(bookmark.address.page)
            + ", position " + std::to_string(bookmark.address.slot);
        if (row == table_.rows.end()) raise(JetError::RowDeleted, where + " is gone");
        const auto position = static_cast<std::size_t>(row - table_.rows.begin());
        if (bookmarkOf(table_, position).names != bookmark.names)
            raise(JetError::RowChanged, where + " is another one now: " + rowName(table_, position));
        position_ = position;
        reachedBy_ = bookmark;
    });
}

void DefinitionRecordSet::edit()
{
    database_->named([&] {
        current();
        database_->usable();
        edited_.emplace();
    });
}

void DefinitionRecordSet::setField(std::string_view column, const basic::Variant& value)
{
    database_->named([&] {
        if (!edited_) raise(JetError::UpdateWithoutEdit, "no row is being edited");
        const std::size_t position = table_.column(column);
        const bool changeable = std::any_of(valueColumns.begin(), valueColumns.end(),
            [column](std::string_view candidate) { return sameName(candidate, column); });
        if (!changeable)
            raise(JetError::FieldCannotBeUpdated,
                rowName(table_, position_) + ": column '" + std::string{column} + "' is never changed");
        edited_->push_back({position, value});
    });
}

void DefinitionRecordSet::update()
{
    database_->named([&] {
        if (!edited_) raise(JetError::UpdateWithoutEdit, "no row is being edited");
        std::vector<DefinitionFile::NewValue> values = *std::exchange(edited_, std::nullopt);
        refuseOtherElement(values);
        database_->usable().change(table_, position_, std::move(values));
    });
}

// The rows of one variable differ by the element number alone, so a row with another one is another row; unless it has
// the number that is to be written, which is what an earlier update left.
void DefinitionRecordSet::refuseOtherElement(const std::vector<DefinitionFile::NewValue>& values) const
{
    if (!reachedBy_ || bookmarkOf(table_, position_).element == reachedBy_->element) return;
    const std::size_t column = table_.column(elementColumn);
    const basic::Variant& stored = table_.rows[position_].cells[column].value;
    for (const DefinitionFile::NewValue& value : values)
        if (value.column == column && !stored.holds<basic::Null>()
            && basic::toDouble(stored) == basic::toDouble(value.value))
            return;
    raise(JetError::RowChanged,
        rowName(table_, position_) + ": its " + std::string{elementColumn}
            + " has changed since it was read");
}

std::size_t DefinitionRecordSet::current() const
{
    if (position_ >= table_.rows.size()) raise(JetError::NoCurrentRow, "there is no current row");
    return position_;
}

} // namespace servopanel::jet
