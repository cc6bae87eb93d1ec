// Only here so that there is something to precompile headers for.
