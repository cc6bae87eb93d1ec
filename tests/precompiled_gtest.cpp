// Only here so that there is something to precompile GoogleTest for.
