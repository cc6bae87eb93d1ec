#pragma once

#include "basic/error.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace servopanel::jet {

// The numbers by which users of the classic database engine know these failures.
enum class JetError : std::int32_t {
    Overflow = 6,
    TypeMismatch = 13,
    UpdateWithoutEdit = 3020,
    NoCurrentRow = 3021,
    FileNotFound = 3024,
    DiskFull = 3026,
    ReadOnly = 3027,
    AlreadyExists = 3204,
    FileInUse = 3045,
    CannotOpen = 3051,
    TableNotFound = 3078,
    FieldCannotBeUpdated = 3164,
    RowDeleted = 3167,
    RowChanged = 3197,
    CannotUpdate = 3260,
    ColumnNotFound = 3265,
    UnknownFormat = 3343,
    DatabaseClosed = 3420,
    Damaged = 3428,
};

// A failure as the adapter raises it. The text says only what is wrong; whoever knows the file puts its name in front.
[[noreturn]] void raise(JetError number, std::string description);

// The file contradicts itself.
[[noreturn]] void raiseDamaged(std::string_view how);

// The same failure with a text that begins with the file: "'C:\Servo\Servo.mdb': it is no Jet database".
basic::Error named(const basic::Error& error, std::string_view file);

} // namespace servopanel::jet
