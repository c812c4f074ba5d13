// SPDX-License-Identifier: MIT
#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGChangeList.h>

#include <QApplication>
#include <gmock/gmock.h>

/// Starts the scene graph, with change lists that record, and a widget application without a display.
int main(int argc, char **argv)
{
    testing::InitGoogleMock(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    osg::ChangeList::setReadWriteDefault();
    osg::osgInit(argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
