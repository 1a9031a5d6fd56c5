#include "command/run.h"

int main(int argc, char** argv) { return command::Run(argc, argv); }
