// SPDX-License-Identifier: MIT
#include <ksundo/core/NodeUtils.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksUndoUtil.h>

#include <ksNodeUtils.h>

#include <QStringList>

#include <algorithm>

namespace {

/// A field for which one of several commands is to be made.
struct Target
{
    Target(const osg::FieldContainerPtr &container, const std::string &fieldName)
        : container(container)
    {
        if (const auto *description = ksFieldBaseUndoCommand::findField(container, fieldName)) {
            fieldId = static_cast<int>(description->getFieldId());
            field = ksDetail::ksFindField(container, description->getFieldId());
        }
    }

    const osg::FieldContainerPtr &container;
    int fieldId = 0;
    osg::Field *field = nullptr;
};

/// Makes the command for the first of the numbers \a T, \a Others ... that the field is of, if any.
template <class T, class... Others, class ValueT>
QUndoCommand *makeNumber(const Target &target, const QString &text, ValueT value, QUndoCommand *parent)
{
    if (ksDetail::ksFieldCast<osg::SField<T>>(target.field) != nullptr)
        return new ksFieldUndoCommand<T>(text, target.container, target.fieldId, static_cast<T>(value),
                                         parent);
    if constexpr (sizeof...(Others) > 0)
        return makeNumber<Others...>(target, text, value, parent);
    else
        return nullptr;
}

/// Leaves \a command, which may be null, to its parent, or adds it to the first stack.
void deliver(QUndoCommand *command, const QUndoCommand *parent)
{
    if (parent == nullptr)
        ksUndoStack::get(0)->add(command);
}

/// Adds the entry of a node to a list of names.
void appendName(QStringList &names, const osg::NodePtr &node)
{
    if (node != osg::NullFC)
        names.append(NodeUtils::displayName(node));
}

void appendName(QStringList &names, const ksNodePtr &node)
{
    appendName(names, node.getNodePtr());
}

void appendName(QStringList &names, const std::pair<osg::NodePtr, int> &entry)
{
    const auto &[node, variant] = entry;
    if (node == osg::NullFC)
        return;
    const QString name = NodeUtils::displayName(node);
    const std::string variantName = ksNodeUtils::getTransformVariantName(node, variant);
    const QString text = variantName.empty() ? name : QString(name + name);
    if (!text.isEmpty())
        names.append(text);
}

/// Lists the names of the first \a maxCount of \a nodes.
template <class NodeT>
QString listNames(const std::vector<NodeT> &nodes, unsigned long maxCount)
{
    QStringList names;
    for (std::size_t i = 0; i < std::min<std::size_t>(maxCount, nodes.size()); ++i)
        appendName(names, nodes[i]);
    const QString end = nodes.size() > maxCount ? QStringLiteral("', ...") : QStringLiteral("'");
    return QLatin1Char('\'') + names.join(QStringLiteral("', '")) + end;
}

} // namespace

void ksUndoUtil::makeIntTypeCommand(const QString &text, osg::FieldContainerPtr container,
                                    const std::string &fieldName, long long value, QUndoCommand *parent)
{
    const Target target(container, fieldName);
    QUndoCommand *command = makeNumber<osg::Int64, osg::UInt64, int, unsigned int, short, unsigned short,
                                       signed char, unsigned char>(target, text, value, parent);
    if (ksDetail::ksFieldCast<osg::SField<bool, 2>>(target.field) != nullptr)
        command = new ksBoolFieldUndoCommand(text, container, target.fieldId, value != 0, parent);
    deliver(command, parent);
}

void ksUndoUtil::makeFloatTypeCommand(const QString &text, osg::FieldContainerPtr container,
                                      const std::string &fieldName, double value, QUndoCommand *parent)
{
    deliver(makeNumber<float, double>(Target(container, fieldName), text, value, parent), parent);
}

QString ksUndoUtil::makeNameList(const osg::NodePtr &node)
{
    return QLatin1Char('\'') + QString::fromLatin1(NodeUtils::getName(node)) + QLatin1Char('\'');
}

QString ksUndoUtil::makeNameList(const std::vector<osg::NodePtr> &nodes, unsigned long maxCount)
{
    return listNames(nodes, maxCount);
}

QString ksUndoUtil::makeNameList(const std::vector<ksNodePtr> &nodes, unsigned long maxCount)
{
    return listNames(nodes, maxCount);
}

QString ksUndoUtil::makeNameList(const std::vector<std::pair<osg::NodePtr, int>> &nodes,
                                 unsigned long maxCount)
{
    return listNames(nodes, maxCount);
}
