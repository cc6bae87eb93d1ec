#include "basic/statement_trap.h"

namespace servopanel::basic {

// The only place of the library that catches an error in the middle of a procedure.
void StatementTrap::run(FunctionRef<void()> statement)
{
    try {
        statement();
    } catch (const Error& error) {
        sink_.report(error, procedure_);
    }
}

} // namespace servopanel::basic
