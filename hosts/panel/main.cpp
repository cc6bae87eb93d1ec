#include "panel/program/program.h"

int main(int argc, char** argv) { return servopanel::panel::runProgram(argc, argv); }
