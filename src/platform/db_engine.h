#pragma once

#include "basic/variant.h"

#include <memory>
#include <string_view>

namespace servopanel::platform {

// The rows of one table, in the order of the file. A fresh record set stands on its first row. Everything may raise
// basic::Error that names file and row.
class RecordSet {
public:
    virtual ~RecordSet() = default;
    virtual bool atEnd() = 0;
    virtual void moveNext() = 0;

    // A column of the current row, its name without regard to case. Without a current row: error 3021.
    virtual basic::Variant field(std::string_view column) = 0;

    // An array of bytes that finds the current row again, also after the file was closed and opened anew.
    virtual basic::Variant bookmark() = 0;
    // Makes the row of a bookmark the current one. When it is gone: an error, and there is no current row.
    virtual void moveTo(const basic::Variant& bookmark) = 0;

    // Changing the current row: edit, setField for each column, update. Nothing is changed before update.
    virtual void edit() = 0;
    virtual void setField(std::string_view column, const basic::Variant& value) = 0;
    virtual void update() = 0;
};

class Database {
public:
    virtual ~Database() = default;
    virtual std::unique_ptr<RecordSet> openRecordSet(std::string_view query) = 0;
    // Ends the use of the file; updates that the engine gathered are carried out at the latest here.
    virtual void close() = 0;
};

class DBEngine {
public:
    virtual ~DBEngine() = default;
    virtual std::unique_ptr<Database> open(std::string_view path) = 0;
};

} // namespace servopanel::platform
