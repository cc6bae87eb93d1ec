# Every statement of a procedure runs through the statement trap. With these lines "step" enters the statement itself.
skip -gfi */basic/statement_trap.*
skip -rfu ^servopanel::basic::FunctionRef
