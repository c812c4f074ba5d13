// SPDX-License-Identifier: MIT
#include <editor/session/ksEditorSession.h>

#include <iostream>

int main(int argc, char **argv)
{
    return ksEditorSession(std::cout, std::cerr).start(argc, argv);
}
