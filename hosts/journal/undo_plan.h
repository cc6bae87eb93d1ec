#pragma once

#include "basic/variant.h"
#include "journal/entry.h"

#include <string>
#include <variant>
#include <vector>

namespace servopanel::journal {

// What takes a write back.
struct UndoPlan {
    std::string machine; // designation
    std::string variable;
    std::vector<Entry> entries; // the elements that go back, one at least; each has its old value
};

// Or why these entries cannot be taken back: they are none, of several writes, of one that the machine refused or that
// changed nothing, or nobody knows the old value.
std::variant<UndoPlan, std::string> planUndo(const std::vector<Entry>& entries);

// The value to write: what the machine holds now, with the elements of the plan as they were before. Raises
// ChangedMeanwhile when one of them is no longer what the write had left.
basic::Variant undone(const UndoPlan& plan, const basic::Variant& held);

// The plan for people: the write, and what goes back.
std::string shownPlan(const UndoPlan& plan);

} // namespace servopanel::journal
