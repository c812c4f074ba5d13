// SPDX-License-Identifier: MIT

/// Runs inputs from files where there is no libFuzzer, as that does with the same arguments.

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <iostream>
#include <stdexcept>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

struct UnreadableInput : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// How many inputs the file \a path, or the folder with all in it, has.
int replay(const QString &path)
{
    if (QFileInfo(path).isDir()) {
        int count = 0;
        for (const QFileInfo &entry : QDir(path).entryInfoList(QDir::Files | QDir::Hidden, QDir::Name))
            count += replay(entry.filePath());
        return count;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw UnreadableInput(path.toStdString() + ": " + file.errorString().toStdString());
    std::cout << path.toStdString() << std::endl;
    const QByteArray input = file.readAll();
    // An array of the very size, so that the sanitizers see who reads behind its end.
    const std::vector<std::uint8_t> bytes(input.begin(), input.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    return 1;
}

} // namespace

int main(int argc, char **argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    int count = 0;
    try {
        for (int i = 1; i < argc; ++i)
            if (argv[i][0] != '-')
                count += replay(QString::fromLocal8Bit(argv[i]));
    } catch (const UnreadableInput &error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    std::cout << count << " inputs" << std::endl;
    return count > 0 ? 0 : 1;
}
