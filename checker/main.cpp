// SPDX-License-Identifier: MIT
#include <checker/session/ksCheckedSession.h>

#include <iostream>

int main(int argc, char **argv)
{
    return ksCheckedSession(std::cout, std::cerr).start(argc, argv);
}
