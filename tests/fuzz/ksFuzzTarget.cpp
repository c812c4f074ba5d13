// SPDX-License-Identifier: MIT
#include "ksFuzzTarget.h"

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGChangeList.h>

#include <QApplication>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <utility>

namespace {

ksFuzzTarget::Function chosen;

/// The target that the arguments name by --target=NAME, an option that libFuzzer leaves alone; null when they
/// name none.
ksFuzzTarget::Function targetIn(int argc, char **argv)
{
    const std::string_view option = "--target=";
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        const auto found = argument.substr(0, option.size()) == option
                               ? ksFuzzTarget::all().find(std::string(argument.substr(option.size())))
                               : ksFuzzTarget::all().end();
        if (found != ksFuzzTarget::all().end())
            return found->second;
    }
    return nullptr;
}

} // namespace

std::map<std::string, ksFuzzTarget::Function> &ksFuzzTarget::all()
{
    static std::map<std::string, Function> targets;
    return targets;
}

void ksRequire(bool holds, std::string_view what)
{
    if (holds)
        return;
    std::cerr << "ks-fuzz: " << what << std::endl;
    std::abort();
}

void ksRequireEqual(const std::string &actual, const std::string &expected, std::string_view what)
{
    if (actual != expected)
        ksRequire(false, std::string(what) + "\nis       " + actual + "\ninstead of " + expected);
}

std::size_t ksFuzzInput::byte()
{
    if (left.empty())
        return 0;
    const auto value = static_cast<unsigned char>(left.front());
    left.remove_prefix(1);
    return value;
}

std::string ksFuzzInput::line()
{
    const std::size_t end = left.find('\n');
    const std::string text(left.substr(0, end));
    left.remove_prefix(end == std::string_view::npos ? left.size() : end + 1);
    return text;
}

std::string ksFuzzInput::rest()
{
    return std::string(std::exchange(left, {}));
}

/// What libFuzzer calls first. Starts the scene graph, with change lists that record, and a widget
/// application without a display.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    chosen = targetIn(*argc, *argv);
    if (chosen == nullptr) {
        std::cerr << "usage: " << (*argv)[0] << " --target=NAME [FILE|FOLDER...], NAME being one of\n";
        for (const auto &[name, function] : ksFuzzTarget::all())
            std::cerr << "  " << name << '\n';
        std::exit(2);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    osg::ChangeList::setReadWriteDefault();
    osg::osgInit(1, *argv);
    static int arguments = 1;
    static const QApplication application(arguments, *argv);
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        ksRequire(type != QtFatalMsg, text.toStdString());
    });
    return 0;
}

/// What libFuzzer calls with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    chosen({reinterpret_cast<const char *>(data), size});
    return 0;
}
