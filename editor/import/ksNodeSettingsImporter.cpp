// SPDX-License-Identifier: MIT
#include <editor/import/ksModelText.h>
#include <editor/import/ksNodeSettingsImporter.h>
#include <editor/scene/ksLooseNumber.h>
#include <editor/scene/ksNumericFields.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGSFBaseTypes.h>

#include <QVariant>
#include <assimp/scene.h>

namespace {

QVariant toVariant(const aiMetadataEntry &entry)
{
    switch (entry.mType) {
    case AI_BOOL:
        return *static_cast<const bool *>(entry.mData);
    case AI_INT32:
        return *static_cast<const int32_t *>(entry.mData);
    case AI_UINT64:
        return QVariant::fromValue(static_cast<qulonglong>(*static_cast<const uint64_t *>(entry.mData)));
    case AI_FLOAT:
        return *static_cast<const float *>(entry.mData);
    case AI_DOUBLE:
        return *static_cast<const double *>(entry.mData);
    case AI_AISTRING:
        return ksModelText::shown(*static_cast<const aiString *>(entry.mData));
    default:
        return {};
    }
}

/// Sets \a field to \a value; tells whether it could.
bool take(osg::Field &field, const QVariant &value)
{
    bool taken = false;
    const auto takeNumber = [&value, &taken](auto &typed) {
        using T = typename std::decay_t<decltype(typed)>::StoredType;
        const std::optional<T> number = ksLooseNumber::to<T>(value);
        taken = number.has_value();
        if (taken)
            typed.setValue(*number);
    };
    if (ksNumericFields::visit(field, takeNumber))
        return taken;
    if (auto *flag = dynamic_cast<osg::SFBool *>(&field)) {
        taken = value.userType() == QMetaType::Bool;
        if (taken)
            flag->setValue(value.toBool());
    } else if (auto *text = dynamic_cast<osg::SFString *>(&field)) {
        taken = value.userType() == QMetaType::QString;
        if (taken)
            text->setValue(value.toString().toStdString());
    }
    return taken;
}

/// The setting called \a name; null when there is none.
const osg::FieldDescription *findSetting(const char *name)
{
    const osg::FieldDescription *description = osg::ksNodeSettings::getClassType().findFieldDescription(name);
    return description != nullptr && description->getFieldId() >= osg::Attachment::NextFieldId ? description
                                                                                               : nullptr;
}

} // namespace

osg::ksNodeSettingsPtr ksNodeSettingsImporter::create(const aiNode &source, const ksWarn &warn)
{
    const osg::ksNodeSettingsPtr settings = osg::ksNodeSettings::create();
    const aiMetadata *metadata = source.mMetaData;
    for (unsigned int i = 0; metadata != nullptr && i < metadata->mNumProperties; ++i) {
        const char *name = metadata->mKeys[i].C_Str();
        const osg::FieldDescription *description = findSetting(name);
        if (description == nullptr)
            continue;
        osg::Field &field = *description->getField(settings);
        const QVariant value = toVariant(metadata->mValues[i]);
        CPEdit(settings, description->getFieldMask());
        if (!take(field, value))
            warn(QStringLiteral("node '") + ksModelText::shown(source.mName) + QStringLiteral("': ") +
                 QString::fromUtf8(name) + QStringLiteral(" is no ") +
                 QString::fromLatin1(field.getType().getCName()));
    }
    return settings;
}
