// SPDX-License-Identifier: MIT
#include <editor/import/ksQuietStandardError.h>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

ksQuietStandardError::ksQuietStandardError()
    : original(dup(STDERR_FILENO))
{
    std::fflush(stderr);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0)
        return;
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
}

ksQuietStandardError::~ksQuietStandardError()
{
    if (original < 0)
        return;
    std::fflush(stderr);
    dup2(original, STDERR_FILENO);
    close(original);
}
