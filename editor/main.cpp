// SPDX-License-Identifier: MIT
#include <editor/window/ksWindowSession.h>

#include <iostream>

int main(int argc, char **argv)
{
    return ksWindowSession(std::cout, std::cerr).start(argc, argv);
}
