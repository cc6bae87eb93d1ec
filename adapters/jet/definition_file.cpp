#include "jet/definition_file.h"

#include "basic/conversions.h"
#include "jet/cell_patch.h"
#include "jet/definition_table.h"
#include "jet/number_coding.h"
#include "jet/same_value.h"

#include <algorithm>
#include <utility>

namespace servopanel::jet {

namespace {

basic::Variant converted(const TableColumn& column, const basic::Variant& value)
{
    if (value.holds<basic::Null>()) return value;
    return basic::convert(value, variantType(column.type));
}

void compare(const Table& expected, const Table& actual)
{
    const auto sameCell = [](const Cell& left, const Cell& right) {
        return sameValue(left.value, right.value);
    };
    const auto sameRow = [&](const TableRow& left, const TableRow& right) {
        return left.address == right.address
            && std::equal(
                left.cells.begin(), left.cells.end(), right.cells.begin(), right.cells.end(), sameCell);
    };
    if (!std::equal(
            expected.rows.begin(), expected.rows.end(), actual.rows.begin(), actual.rows.end(), sameRow))
        raise(JetError::CannotUpdate, "the changed file does not hold the values that were meant");
}

// Carries patches out one by one, and takes them back unless they are kept.
class Patching {
public:
    explicit Patching(FileImage& image)
        : image_{image}
    {
    }
    Patching(const Patching&) = delete;
    Patching& operator=(const Patching&) = delete;
    ~Patching()
    {
        for (auto patch = before_.rbegin(); patch != before_.rend(); ++patch)
            image_.change(patch->page, patch->at, patch->content);
    }

    void apply(const Patch& patch)
    {
        const ByteView old = part(image_.page(patch.page), patch.at, patch.content.size());
        before_.push_back({patch.page, patch.at, {old.begin(), old.end()}});
        image_.change(patch.page, patch.at, patch.content);
    }
    void keep() { before_.clear(); }

private:
    FileImage& image_;
    std::vector<Patch> before_;
};

} // namespace

DefinitionFile::DefinitionFile(const std::filesystem::path& path)
    : file_{readFile(path)}
    , image_{file_.bytes}
{
}

Table DefinitionFile::readTable() const { return readDefinitions(image_); }

void DefinitionFile::change(Table& table, std::size_t row, std::vector<NewValue> values)
{
    try {
        for (NewValue& value : values)
            value.value = converted(table.columns[value.column], value.value);
        Patching patching{image_};
        for (const NewValue& value : values)
            for (const Patch& patch : patchesFor(image_, table, row, value.column, value.value))
                patching.apply(patch);
        patching.keep();
    } catch (const basic::Error& error) {
        throw basic::Error{error.number, error.source, rowName(table, row) + ": " + error.description};
    }
    for (NewValue& value : values) {
        table.rows[row].cells[value.column].value = value.value;
        changes_[{table.rows[row].address, value.column}] = std::move(value.value);
    }
}

void DefinitionFile::save()
{
    if (image_.bytes() == file_.bytes) return;
    Table expected = readDefinitions(FileImage{file_.bytes});
    for (TableRow& row : expected.rows)
        for (std::size_t column = 0; column < row.cells.size(); ++column)
            if (const auto change = changes_.find({row.address, column}); change != changes_.end())
                row.cells[column].value = change->second;
    replaceFile(file_, image_.bytes(),
        [&](const Bytes& written) { compare(expected, readDefinitions(FileImage{written})); });
}

} // namespace servopanel::jet
