// SPDX-License-Identifier: MIT
#pragma once

#include <editor/export/ksSceneExporter.h>
#include <editor/import/ksSceneImporter.h>
#include <tests/editor/ksEditorFixture.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <string>
#include <vector>

/// Saves scenes and opens them again; keeps the warnings of the last opening.
class ksSavedSceneFixture : public testing::Test
{
protected:
    osg::NodeRefPtr open(const QString &path)
    {
        warnings.clear();
        return ksSceneImporter([this](const QString &text) { warnings.push_back(text.toStdString()); })
            .load(path);
    }

    /// \a root as it is after saving and opening.
    osg::NodeRefPtr reopened(const osg::NodePtr &root, const char *name = "saved.gltf")
    {
        ksSceneExporter::save(root, folder.path(name));
        return open(folder.path(name));
    }

    /// The document that \a root is saved as.
    QJsonObject saved(const osg::NodePtr &root) const
    {
        const QString path = folder.path("saved.gltf");
        ksSceneExporter::save(root, path);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QJsonDocument::fromJson(file.readAll()).object();
    }

    osg::NodeRefPtr open(const QJsonObject &document)
    {
        return open(folder.write("edited.gltf", QJsonDocument(document).toJson().toStdString()));
    }

    ksTestFolder folder;
    std::vector<std::string> warnings;
};
