// SPDX-License-Identifier: MIT
#include <cstdio>
#include <dlfcn.h>

/// Opens the plugin that its only argument names, has it run, and closes it; and all that once more.
int main(int, char **argv)
{
    for (int i = 0; i < 2; ++i) {
        void *plugin = dlopen(argv[1], RTLD_NOW);
        void *run = plugin != nullptr ? dlsym(plugin, "run") : nullptr;
        if (run == nullptr) {
            std::fprintf(stderr, "%s\n", dlerror());
            return 1;
        }
        reinterpret_cast<void (*)()>(run)();
        dlclose(plugin);
        std::printf("closed\n");
    }
    return 0;
}
