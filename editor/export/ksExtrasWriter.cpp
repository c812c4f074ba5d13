// SPDX-License-Identifier: MIT
#include <editor/export/ksExtrasWriter.h>
#include <editor/scene/ksFieldJson.h>
#include <editor/scene/ksFieldReferences.h>
#include <editor/scene/ksSavedFields.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGSFAttachmentMap.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

ksExtrasWriter::ksExtrasWriter(const std::vector<osg::NodePtr> &nodes, IsElsewhere elsewhere)
    : isElsewhere(std::move(elsewhere))
{
    for (const osg::NodePtr &node : nodes)
        placed.insert(node.getFieldContainerId());
    known = placed;
}

QString ksExtrasWriter::textOf(const osg::NodePtr &node)
{
    QJsonArray containers;
    pending.push_back(node);
    while (!pending.empty()) {
        const osg::FieldContainerPtr container = pending.front();
        pending.pop_front();
        containers.append(write(container));
    }
    return QString::fromUtf8(QJsonDocument(containers).toJson(QJsonDocument::Compact));
}

int ksExtrasWriter::idOf(const osg::FieldContainerPtr &container)
{
    if (container == osg::NullFC)
        return 0;
    return ids.emplace(container.getFieldContainerId(), static_cast<int>(ids.size()) + 1).first->second;
}

QJsonArray ksExtrasWriter::write(const osg::FieldContainerPtr &container)
{
    QJsonObject fields;
    const std::vector<QJsonValue> &fresh = valuesWhenNew(container->getType());
    const auto add = [this, &container, &fresh, &fields](const osg::FieldDescription &description,
                                                         const osg::Field &field) {
        if (isElsewhere(container, description.getFieldId()))
            return;
        QJsonValue value;
        switch (ksSavedFields::referenceOf(container, description)) {
        case ksSavedFields::Reference::None:
            value = ksFieldJson::write(field);
            if (value == fresh[description.getFieldId()])
                return;
            break;
        case ksSavedFields::Reference::Children:
            // Those of the file's nodes are where it has them.
            if (placed.count(container.getFieldContainerId()) > 0)
                return;
            value = references(field);
            break;
        case ksSavedFields::Reference::Parents:
            if (field.getSize() < 2)
                return;
            value = parents(field);
            break;
        case ksSavedFields::Reference::Attachments:
            value = attachments(field);
            break;
        default:
            value = references(field);
        }
        if (!value.isNull())
            fields.insert(QString::fromLatin1(description.getCName()), value);
    };
    ksSavedFields::visit(container, add);
    return {idOf(container), QString::fromLatin1(container->getTypeName()), fields};
}

const std::vector<QJsonValue> &ksExtrasWriter::valuesWhenNew(const osg::FieldContainerType &type)
{
    std::vector<QJsonValue> &values = newValues[&type];
    if (values.empty()) {
        const osg::FieldContainerPtr fresh = type.getPrototype();
        values.resize(type.getNumFieldDescs() + 1);
        ksSavedFields::visit(fresh, [&](const osg::FieldDescription &description, const osg::Field &field) {
            if (ksSavedFields::referenceOf(fresh, description) == ksSavedFields::Reference::None)
                values[description.getFieldId()] = ksFieldJson::write(field);
        });
    }
    return values;
}

QJsonValue ksExtrasWriter::references(const osg::Field &field)
{
    QJsonArray list;
    for (const osg::UInt32 id : ksFieldReferences::ids(field))
        list.append(reach(id));
    if (field.getCardinality() == osg::FieldType::MULTI_FIELD)
        return list.isEmpty() ? QJsonValue() : QJsonValue(list);
    return list.at(0).toInt() == 0 ? QJsonValue() : list.at(0);
}

QJsonValue ksExtrasWriter::attachments(const osg::Field &field)
{
    constexpr osg::UInt32 BindingBits = 0xFFFF;
    QJsonArray list;
    for (const auto &[key, attachment] : static_cast<const osg::SFAttachmentMap &>(field).getValue())
        list.append(QJsonArray{reach(attachment.getFieldContainerId()), static_cast<int>(key & BindingBits)});
    return list.isEmpty() ? QJsonValue() : QJsonValue(list);
}

QJsonValue ksExtrasWriter::parents(const osg::Field &field)
{
    QJsonArray list;
    // They do not belong to the scene just because of what they share with it.
    for (const osg::UInt32 id : ksFieldReferences::ids(field))
        list.append(idOf(osg::FieldContainerFactory::the()->getContainer(id)));
    return list;
}

int ksExtrasWriter::reach(osg::UInt32 id)
{
    const osg::FieldContainerPtr container = osg::FieldContainerFactory::the()->getContainer(id);
    if (container != osg::NullFC && known.insert(id).second)
        pending.push_back(container);
    return idOf(container);
}
