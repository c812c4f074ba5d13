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

/// Builds commands on one field for the first of the tried types that the field has.
class CommandMaker
{
public:
    CommandMaker(const QString &text, const osg::FieldContainerPtr &container, const std::string &fieldName,
                 QUndoCommand *parent)
        : text(text)
        , container(container)
        , parent(parent)
    {
        if (const auto *description = ksFieldBaseUndoCommand::findField(container, fieldName)) {
            fieldId = static_cast<int>(description->getFieldId());
            field = description->getField(container);
        }
    }

    template <class T, class ValueT>
    bool tryNumber(ValueT value) const
    {
        return ksDetail::ksFieldCast<osg::SField<T>>(field) != nullptr &&
               deliver(new ksFieldUndoCommand<T>(text, container, fieldId, static_cast<T>(value), parent));
    }

    bool tryBool(bool value) const
    {
        return ksDetail::ksFieldCast<osg::SField<bool, 2>>(field) != nullptr &&
               deliver(new ksBoolFieldUndoCommand(text, container, fieldId, value, parent));
    }

private:
    bool deliver(QUndoCommand *command) const
    {
        if (parent == nullptr)
            ksUndoStack::get(0)->add(command);
        return true;
    }

    const QString &text;
    const osg::FieldContainerPtr &container;
    QUndoCommand *parent;
    int fieldId = 0;
    osg::Field *field = nullptr;
};

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
    const bool hasVariantName = !ksNodeUtils::getTransformVariantName(node, variant).empty();
    const QString text = hasVariantName ? QString(name + name) : name;
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
    const CommandMaker maker(text, container, fieldName, parent);
    maker.tryNumber<long long>(value) || maker.tryNumber<unsigned long long>(value) ||
        maker.tryNumber<int>(value) || maker.tryNumber<unsigned int>(value) ||
        maker.tryNumber<short>(value) || maker.tryNumber<unsigned short>(value) ||
        maker.tryNumber<signed char>(value) || maker.tryNumber<unsigned char>(value) ||
        maker.tryBool(value != 0);
}

void ksUndoUtil::makeFloatTypeCommand(const QString &text, osg::FieldContainerPtr container,
                                      const std::string &fieldName, double value, QUndoCommand *parent)
{
    const CommandMaker maker(text, container, fieldName, parent);
    maker.tryNumber<float>(value) || maker.tryNumber<double>(value);
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
