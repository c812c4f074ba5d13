// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldEdits.h>
#include <editor/edits/ksFieldRanges.h>
#include <editor/inspector/ksColourEditor.h>
#include <editor/inspector/ksFlagEditor.h>
#include <editor/inspector/ksInspectorFields.h>
#include <editor/inspector/ksInspectorSection.h>
#include <editor/inspector/ksListEditor.h>
#include <editor/inspector/ksNumbersEditor.h>
#include <editor/inspector/ksTextEditor.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksFieldReader.h>
#include <editor/scene/ksNumericFields.h>

#include <OSGTransform3D.h>
#include <OSGTransformVariantsAttachment.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFVecTypes.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <ksNodeUtils.h>

#include <QCoreApplication>

#include <limits>
#include <type_traits>
#include <unordered_set>

namespace {

/// The labels of the fields that the pages show one by one, for those who translate. Others are called as
/// their classes say.
[[maybe_unused]] constexpr const char *Labels[] = {
    QT_TRANSLATE_NOOP("ksInspectorFields", "Attenuation"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Base color"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Color"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Comment"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Cone angle"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Diffuse"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Enabled"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Glossy"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Intensity"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Layer"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Locked"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Lod bias"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Mapping offset"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Mapping rotation"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Mapping scale"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Metalness"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Opacity"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Penumbra angle"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Pick id"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Planar projection"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Projection size"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Reference distance"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Refraction index"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Render order"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Revision"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Rotate pivot"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Roughness"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Scale"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Scale pivot"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Shear"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Sort key"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Stencil reference"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Time offset"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Translation"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Transparency mode"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "User flags"),
    QT_TRANSLATE_NOOP("ksInspectorFields", "Weight")};

const QStringList &colourNames()
{
    static const QStringList names = {QStringLiteral("color"), QStringLiteral("baseColor"),
                                      QStringLiteral("diffuse"), QStringLiteral("glossy")};
    return names;
}

osg::Field *fieldIn(const osg::FieldContainerPtr &container, const QString &name)
{
    return container->getField(name.toLatin1().constData());
}

/// Whether ksFieldEdits takes values for the field.
bool isEditable(const osg::FieldContainerPtr &container, const QString &name)
{
    const bool isDerived =
        osg::Transform3DPtr::dcast(container) != osg::NullFC &&
        (name == QLatin1String("eulerRotation") || name == QLatin1String("eulerRotationOrder"));
    return !isDerived && ksFieldBaseUndoCommand::findField(container, name.toStdString()) != nullptr &&
           ksInspectorFields::read(*fieldIn(container, name)).isValid();
}

template <class T>
ksNumberKind kindOf()
{
    ksNumberKind kind;
    if constexpr (std::is_integral_v<T>) {
        kind.type = ksNumberKind::Type::Integer;
        kind.least = static_cast<double>(std::numeric_limits<T>::lowest());
        kind.most = static_cast<double>(std::numeric_limits<T>::max());
        kind.step = 1;
    } else if constexpr (std::is_same_v<T, double>)
        kind.type = ksNumberKind::Type::Double;
    return kind;
}

/// \a kind within the range of the field.
ksNumberKind limited(ksNumberKind kind, const osg::FieldContainerPtr &container, const QString &name)
{
    const ksFieldRanges::Range range = ksFieldRanges::of(container, name);
    kind.least = std::max(kind.least, range.least);
    kind.most = std::min(kind.most, range.most);
    if (kind.type == ksNumberKind::Type::Integer)
        return kind;
    constexpr double Percent = 0.01;
    if (kind.most - kind.least <= 1)
        kind.step = Percent;
    else if (name.contains(QLatin1String("ngle")) || name.contains(QLatin1String("otation")))
        kind.step = 1;
    return kind;
}

QStringList axes(int count)
{
    const QStringList all = {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z"),
                             QStringLiteral("w")};
    return all.mid(0, count);
}

} // namespace

QString ksInspectorFields::textOf(const osg::FieldContainerPtr &target, const QString &field)
{
    return ksInspectorRow::textOf(label(field), {target});
}

QUndoCommand *ksInspectorFields::make(const osg::FieldContainerPtr &target, const QString &field,
                                      const QVariant &value, QUndoCommand *parent)
{
    return ksFieldEdits::make(textOf(target, field), target, field, value, ksMerging::WithPrevious, parent);
}

QVariant ksInspectorFields::read(osg::Field &field)
{
    QVariant value;
    const auto readNumber = [&value](const auto &typed) {
        using T = typename std::decay_t<decltype(typed)>::StoredType;
        if constexpr (std::is_same_v<T, osg::Int64> || std::is_same_v<T, osg::UInt64>)
            value = QString::number(typed.getValue());
        else
            value = static_cast<double>(typed.getValue());
    };
    const auto readTuple = [&value](const auto &typed) {
        using T = typename std::decay_t<decltype(typed)>::StoredType;
        QVariantList numbers;
        for (osg::UInt32 i = 0; i < T::Size; ++i)
            numbers += static_cast<double>(typed.getValue()[i]);
        value = numbers;
    };
    if (ksNumericFields::visit(field, readNumber) ||
        ksNumericFields::visitAs<osg::Vec2f, osg::Vec3f, osg::Vec4f, osg::Pnt3f, osg::Color3f, osg::Color4f>(
            field, readTuple))
        return value;
    if (field.getType() == osg::SFBool::getClassType())
        return static_cast<osg::SFBool &>(field).getValue();
    if (field.getType() == osg::SFString::getClassType())
        return QString::fromStdString(static_cast<osg::SFString &>(field).getValue());
    if (field.getType() == osg::MFString::getClassType()) {
        QStringList texts;
        for (const std::string &text : static_cast<osg::MFString &>(field).getValues())
            texts += QString::fromStdString(text);
        return texts;
    }
    return value;
}

QString ksInspectorFields::label(const QString &name)
{
    QString words;
    for (const QChar letter : name)
        words += letter.isUpper() && !words.isEmpty() ? QLatin1Char(' ') + QString(letter.toLower())
                                                      : QString(letter);
    if (!words.isEmpty())
        words[0] = words[0].toUpper();
    return QCoreApplication::translate("ksInspectorFields", words.toLatin1().constData());
}

QString ksInspectorFields::titleOf(const osg::FieldContainerPtr &container)
{
    const QString name = ksContainers::nameOf(container);
    return name.isEmpty() ? ksContainers::label(container) : name;
}

void ksInspectorFields::watchName(ksWatches &watches, const osg::AttachmentContainerPtr &container)
{
    watches.emplace_back(container.getFieldContainerId(), osg::AttachmentContainer::AttachmentsFieldMask);
    if (const osg::AttachmentPtr name = container->findAttachment(osg::Name::getClassType()))
        watches.emplace_back(name.getFieldContainerId(), osg::Name::SimpleFieldMask);
}

void ksInspectorFields::watchVariants(ksWatches &watches, const osg::NodePtr &node, osg::BitVector mask)
{
    watches.emplace_back(node.getFieldContainerId(), osg::Node::AttachmentsFieldMask);
    const auto variants = ksNodeUtils::getTransformVariantsAttachment(node);
    if (variants == osg::NullFC)
        return;
    watches.emplace_back(variants.getFieldContainerId(), osg::FieldBits::AllFields);
    for (const osg::TransformVariantPtr &variant : variants->getVariants())
        watches.emplace_back(variant.getFieldContainerId(), mask);
}

int ksInspectorFields::indexOfVariant(const osg::NodePtr &node, const osg::TransformVariantPtr &meant)
{
    int found = -1;
    for (auto i = static_cast<int>(ksNodeUtils::getTransformVariantCount(node)) - 1; i >= 0; --i) {
        const auto variant = ksNodeUtils::getTransformVariant(node, static_cast<unsigned long>(i));
        if (variant == meant)
            return i;
        if (variant->getName() == meant->getName())
            found = i;
    }
    return found;
}

ksInspectorField ksInspectorFields::fieldOf(const std::vector<osg::UInt32> &targets, const QString &field)
{
    ksInspectorField result;
    result.name = label(field);
    result.targets = targets;
    result.read = [field](const osg::FieldContainerPtr &target) {
        osg::Field &found = *fieldIn(target, field);
        const QVariant value = isEditable(target, field) ? read(found) : QVariant();
        return value.isValid() ? value : QString::fromStdString(ksFieldReader::text(found));
    };
    result.watches = [field](const osg::FieldContainerPtr &target) {
        const osg::FieldDescription *description =
            target->getType().findFieldDescription(field.toLatin1().constData());
        return ksWatches{{target.getFieldContainerId(), description->getFieldMask()}};
    };
    return result;
}

ksValueEditor *ksInspectorFields::makeEditor(const osg::FieldContainerPtr &container, const QString &name)
{
    if (!isEditable(container, name))
        return new ksTextEditor(ksTextEditor::Telling::Never);
    osg::Field &field = *fieldIn(container, name);
    ksValueEditor *editor = nullptr;
    ksNumericFields::visit(field, [&](const auto &typed) {
        using T = typename std::decay_t<decltype(typed)>::StoredType;
        if constexpr (sizeof(T) == sizeof(osg::Int64) && std::is_integral_v<T>)
            editor = new ksTextEditor(ksTextEditor::Telling::AtTheEnd);
        else
            editor = new ksNumbersEditor(limited(kindOf<T>(), container, name), label(name));
    });
    if (editor != nullptr)
        return editor;
    if (field.getType() == osg::SFBool::getClassType())
        return new ksFlagEditor;
    if (field.getType() == osg::SFString::getClassType())
        return new ksTextEditor(ksTextEditor::Telling::WhileTyping);
    const int count = read(field).toList().size();
    if (field.getType() == osg::SFColor3f::getClassType() ||
        field.getType() == osg::SFColor4f::getClassType() || colourNames().contains(name))
        return new ksColourEditor(count);
    return new ksNumbersEditor(limited(kindOf<float>(), container, name), axes(count));
}

void ksInspectorFields::add(ksInspectorSection &section, const std::vector<osg::UInt32> &targets,
                            const QString &name, const Make &makeCommand)
{
    const auto shown = ksFindContainer<osg::FieldContainerPtr>(targets.back());
    ksInspectorField field = fieldOf(targets, name);
    field.make = [makeCommand, name](const osg::FieldContainerPtr &target, const QVariant &value,
                                     QUndoCommand *parent) {
        return makeCommand(target, name, value, parent);
    };
    const osg::Field *found = fieldIn(shown, name);
    if (found->getType() != osg::MFString::getClassType() || !isEditable(shown, name)) {
        section.addRow(field, makeEditor(shown, name));
        return;
    }
    section.addTallRow(field, new ksListEditor(ksListEditor::TypeNew | ksListEditor::RemoveEntry |
                                               ksListEditor::RenameEntry | ksListEditor::MoveEntry));
}

void ksInspectorFields::addAll(ksInspectorSection &section, const std::vector<osg::UInt32> &targets,
                               const QStringList &leavesOut, const Make &makeCommand)
{
    const auto shown = ksFindContainer<osg::FieldContainerPtr>(targets.back());
    const osg::FieldContainerType &type = shown->getType();
    for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        const osg::FieldDescription &description = *type.getFieldDescription(id);
        const QString name = QString::fromLatin1(description.getCName());
        if (!description.isInternal() && !leavesOut.contains(name))
            add(section, targets, name, makeCommand);
    }
}

std::vector<osg::UInt32> ksInspectorFields::idsOf(const std::vector<osg::FieldContainerPtr> &containers)
{
    std::vector<osg::UInt32> ids;
    if (containers.empty() || containers.back() == osg::NullFC)
        return ids;
    std::unordered_set<osg::UInt32> known;
    for (auto container = containers.rbegin(); container != containers.rend(); ++container) {
        const osg::UInt32 id = container->getFieldContainerId();
        if (id != 0 && known.insert(id).second)
            ids.push_back(id);
    }
    std::reverse(ids.begin(), ids.end());
    return ids;
}

ksInspectorSubjects
ksInspectorFields::subjects(const std::vector<osg::NodePtr> &nodes,
                            const std::function<osg::FieldContainerPtr(const osg::NodePtr &)> &find)
{
    ksInspectorSubjects result;
    std::vector<osg::FieldContainerPtr> found;
    for (const osg::NodePtr &node : nodes) {
        found.push_back(find(node));
        result.watches.emplace_back(node.getFieldContainerId(), osg::Node::CoreFieldMask |
                                                                    osg::Node::ChildrenFieldMask |
                                                                    osg::Node::AttachmentsFieldMask);
    }
    result.ids = idsOf(found);
    return result;
}
