// SPDX-License-Identifier: MIT
#pragma once

/// Drops what is written to standard error for as long as it lives.
///
/// Some readers of the import library write there besides reporting the error, and a model that cannot be
/// read is to give one line.
class ksQuietStandardError
{
public:
    ksQuietStandardError();
    ~ksQuietStandardError();
    ksQuietStandardError(const ksQuietStandardError &) = delete;
    ksQuietStandardError &operator=(const ksQuietStandardError &) = delete;

private:
    int original;
};
