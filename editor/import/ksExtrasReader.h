// SPDX-License-Identifier: MIT
#pragma once

#include <editor/import/ksMaterialImporter.h>
#include <editor/import/ksWarn.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <QJsonArray>
#include <QJsonObject>

#include <map>
#include <unordered_map>
#include <unordered_set>
#include <vector>

struct aiMaterial;
struct aiNode;
struct aiScene;
class ksGltfFile;
class ksGltfNodes;
class ksModelFile;

/// Brings back the containers that a glTF file keeps in its extras, see ksGltfNames::extras().
///
/// What other programs have changed since counts: names and places of nodes, children, geometry, what
/// surfaces look like, lights. Extras that are not sound, or those of a node that was copied together with
/// them, are left out after a warning, and so is every single value in them that does not fit its field.
class ksExtrasReader
{
public:
    /// Makes all containers that \a model, whose nodes are \a sources, has extras of. \a modelMaterials makes
    /// materials of the model that are not those of the extras any more. All must outlive the reader.
    ksExtrasReader(const ksModelFile &model, const ksGltfNodes &sources, ksMaterialImporter &modelMaterials,
                   const ksWarn &reportTo);

    /// The node that \a source has the extras of, with its core and attachments, but only such children as
    /// are no nodes of the model; its parent is up to the caller. NullFC when there are none.
    osg::NodePtr node(const aiNode &source) const;

private:
    /// A node of the model that has extras.
    struct Entry
    {
        const aiNode *source;
        QString name;

        /// The material that its mesh has, and its light; undefined when there is none.
        QJsonValue material;
        QJsonValue light;

        /// What the extras hold.
        QJsonArray containers;
    };

    void collect(const aiNode &source, const ksGltfNodes &sources);

    /// The element of one of the document's lists; undefined when there is none.
    QJsonValue element(const char *list, const QJsonValue &index) const;

    void createContainers(Entry &entry);
    void readMesh(const Entry &entry);
    void readContainers(const Entry &entry);
    void readField(const Entry &entry, const osg::FieldContainerPtr &container, const QString &name,
                   const QJsonValue &value);
    bool readValue(const osg::FieldContainerPtr &container, osg::Field &field, const QJsonValue &value) const;
    bool readReferences(const osg::FieldContainerPtr &holder, osg::Field &field, const QJsonValue &value,
                        bool areCounted);
    bool readAttachments(const osg::FieldContainerPtr &container, const QJsonValue &value) const;
    bool readChildren(const osg::FieldContainerPtr &container, const QJsonValue &value) const;
    void readImages();

    /// Takes nodes that are no nodes of the model apart where they are nested too deeply.
    void flatten();
    void orderParents(const Entry &entry);
    void adaptToModel(const Entry &entry);
    void adaptMaterial(const Entry &entry, const osg::NodePtr &node);

    /// Whether \a material looks as the document's material \a source does, which has become \a read.
    bool looksLike(const osg::MaterialPtr &material, const QJsonValue &source, const aiMaterial &read) const;

    void adaptLight(const Entry &entry, const osg::NodePtr &node) const;

    osg::FieldContainerPtr find(const QJsonValue &id) const;
    void report(const Entry &entry, const QString &text) const;

    const ksWarn &warn;
    const aiScene &scene;
    ksGltfFile &file;
    ksMaterialImporter &materials;
    ksImageImporter images;
    std::vector<Entry> entries;
    std::unordered_map<const aiNode *, osg::NodePtr> nodes;
    std::unordered_set<osg::UInt32> nodeIds;

    /// Those whose geometry, and whose pixels, are the model's.
    std::unordered_set<osg::UInt32> meshesOfModel;
    std::unordered_set<osg::UInt32> imagesOfModel;

    /// By their ids in the file.
    std::map<int, osg::RefPtr<osg::FieldContainerPtr>> containers;
};
