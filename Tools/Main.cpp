// SPDX-License-Identifier: MIT
#include "common/Program.h"

int main(int argc, char **argv)
{
    return zarn::tool::runProgram(argc, argv);
}
