// SPDX-License-Identifier: MIT
#pragma once

#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksMesh.h>
#include <editor/scene/ksNodeSettings.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <QString>
#include <QTemporaryDir>
#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <functional>
#include <string>
#include <support/ksAspects.h>

/// The demo model, in the source tree.
inline QString ksRoomFile(const char *name = "room.gltf")
{
    return QStringLiteral(KS_ROOM_FOLDER "/") + QString::fromLatin1(name);
}

/// The number of containers that exist, once aspect 1 has let go of what aspect 0 has.
inline std::ptrdiff_t ksLivingContainers()
{
    ksSyncAspects();
    const auto &store = *osg::FieldContainerFactory::the()->getFieldContainerStore();
    return std::count_if(store.begin(), store.end(),
                         [](const osg::FieldContainerPtr &container) { return container != osg::NullFC; });
}

/// The first node called \a name at or below \a root; NullFC when there is none.
inline osg::NodePtr ksFindNode(const osg::NodePtr &root, const std::string &name)
{
    osg::NodePtr found;
    ksContainers::visitNodes(root, [&](const osg::NodePtr &node) {
        const char *nodeName = osg::getName(node);
        if (found == osg::NullFC && nodeName != nullptr && name == nodeName)
            found = node;
    });
    return found;
}

/// The settings of \a node.
inline osg::ksNodeSettingsPtr ksSettingsOf(const osg::NodePtr &node)
{
    return osg::ksNodeSettingsPtr::dcast(node->findAttachment(osg::ksNodeSettings::getClassType()));
}

/// The message of the ksEditorError that \a work throws; empty when it throws none.
inline std::string ksErrorOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const ksEditorError &error) {
        return error.what();
    }
    return {};
}

/// Files of a test, which go with it.
class ksTestFolder
{
public:
    QString path(const std::string &name) const { return folder.filePath(QString::fromStdString(name)); }

    /// Writes a file and returns its path.
    QString write(const std::string &name, const std::string &content) const
    {
        std::ofstream(path(name).toStdString(), std::ios::binary) << content;
        return path(name);
    }

private:
    QTemporaryDir folder;
};

/// A scene of two nodes with settings: "Root", and below it "Child".
class ksEditorFixture : public testing::Test
{
protected:
    ksEditorFixture()
    {
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        root->addChild(child);
    }

    static osg::NodePtr makeNode(const char *name)
    {
        const osg::NodePtr node = osg::Node::create();
        CPEdit(node, osg::Node::CoreFieldMask | osg::Node::AttachmentsFieldMask);
        node->setCore(osg::Group::create());
        node->addAttachment(osg::ksNodeSettings::create());
        osg::setName(node, name);
        return node;
    }

    osg::ksNodeSettingsPtr rootSettings() const { return ksSettingsOf(root); }
    osg::ksNodeSettingsPtr childSettings() const { return ksSettingsOf(child); }

    osg::NodeRefPtr root{makeNode("Root")};
    osg::NodePtr child = makeNode("Child");
};
