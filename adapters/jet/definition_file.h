#pragma once

#include "jet/disk_file.h"
#include "jet/file_image.h"
#include "jet/table.h"

#include <filesystem>
#include <map>
#include <utility>
#include <vector>

namespace servopanel::jet {

// The definitions of one database file, read at once; changes are gathered in memory and become one change of the file.
// Errors do not name the file.
class DefinitionFile {
public:
    // Errors: FileNotFound, CannotOpen, UnknownFormat.
    explicit DefinitionFile(const std::filesystem::path& path);

    // The rows with the changes gathered so far. Errors: TableNotFound, ColumnNotFound, Damaged.
    Table readTable() const;

    // Gives values to columns of a row, all or none of them; each value gets the type of its column. The table is one
    // of readTable() and gets the values too. Errors: those of patchesFor and of the conversion, with the name of the
    // row.
    struct NewValue {
        std::size_t column = 0;
        basic::Variant value;
    };
    void change(Table& table, std::size_t row, std::vector<NewValue> values);

    // Writes what was changed; nothing is written when nothing was. Errors: those of replaceFile.
    void save();

private:
    DiskFile file_;
    FileImage image_;
    std::map<std::pair<RowAddress, std::size_t>, basic::Variant> changes_; // by row and column
};

} // namespace servopanel::jet
