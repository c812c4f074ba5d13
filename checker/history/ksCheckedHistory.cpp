// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksInexactUndo.h>
#include <checker/history/ksTranscript.h>
#include <editor/history/ksRecord.h>
#include <editor/scene/ksContainers.h>

#include <ksundo/core/ksUndoCommand.h>

#include <OSGEulerAngles.h>
#include <OSGTransform3D.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <ksMessage.h>

#include <QScopedValueRollback>
#include <QStringList>
#include <QUndoCommand>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <tuple>

namespace {

constexpr std::size_t ShownLines = 8;

QString valueText(const boost::any &value)
{
    if (const auto *number = boost::any_cast<int>(&value))
        return QString::number(*number);
    if (const auto *id = boost::any_cast<unsigned int>(&value))
        return QString::number(*id);
    if (const auto *flag = boost::any_cast<bool>(&value))
        return *flag ? QStringLiteral("true") : QStringLiteral("false");
    if (const auto *text = boost::any_cast<std::string>(&value))
        return QLatin1Char('"') + QString::fromStdString(*text) + QLatin1Char('"');
    return QString::fromLatin1(value.type().name());
}

QString describe(const ksDifference &difference)
{
    const osg::FieldContainerPtr container =
        osg::FieldContainerFactory::the()->getContainer(difference.container);
    QString where = container != osg::NullFC ? ksContainers::label(container)
                                             : QString::fromStdString(difference.type) + QLatin1Char(' ') +
                                                   QString::number(difference.container);
    if (difference.field != 0)
        where += QLatin1Char(' ') + QString::fromStdString(difference.name);
    return where;
}

QString withValues(const ksDifference &difference, const QString &between)
{
    return describe(difference) + QStringLiteral(": ") + QString::fromStdString(difference.expected) +
           between + QString::fromStdString(difference.actual);
}

/// The numbers that \a content, which is that of a field of them, consists of.
std::vector<float> numbersIn(const std::string &content)
{
    std::vector<float> numbers(content.size() / sizeof(float));
    for (std::size_t i = 0; i < numbers.size(); ++i)
        std::memcpy(&numbers[i], &content[i * sizeof(float)], sizeof(float));
    return numbers;
}

/// Numbers that are one value: a vector, a quaternion, a column of a matrix.
using Numbers = std::vector<float>;

double largestOf(const Numbers &numbers)
{
    double largest = 0;
    for (const double number : numbers)
        largest = std::max(largest, std::abs(number));
    return largest;
}

/// Whether \a actual is \a expected, but for \a limit, after a multiplication by \a sign.
bool areNear(const Numbers &expected, const Numbers &actual, double limit, double sign)
{
    return std::equal(
        expected.begin(), expected.end(), actual.begin(), actual.end(),
        [limit, sign](double left, double right) { return std::abs(left - sign * right) <= limit; });
}

/// Whether \a actual, a whole field, is \a expected as far as \a rounding allows. A quaternion and its
/// negative are the same rotation. Of a matrix, only the translation is calculated from other values.
bool areNear(const Numbers &expected, const Numbers &actual, const ksExpectedRounding &rounding)
{
    constexpr std::size_t Column = 4;
    if (expected.empty() || expected.size() != actual.size())
        return false;
    const auto limitOf = [&rounding](const Numbers &numbers, double length) {
        return rounding.tolerance * std::max(length, largestOf(numbers));
    };
    const double limit = limitOf(expected, rounding.length);
    if (expected.size() == Column)
        return areNear(expected, actual, limit, 1) || areNear(expected, actual, limit, -1);
    if (expected.size() != Column * Column)
        return areNear(expected, actual, limit, 1);
    for (std::size_t at = 0; at < expected.size(); at += Column) {
        const auto columnOf = [at](const Numbers &matrix) {
            const auto first = matrix.begin() + static_cast<std::ptrdiff_t>(at);
            return Numbers(first, first + Column);
        };
        const Numbers column = columnOf(expected);
        const bool isTranslation = at + Column == expected.size();
        if (!areNear(column, columnOf(actual), limitOf(column, isTranslation ? rounding.length : 0), 1))
            return false;
    }
    return true;
}

/// The numbers of the quaternion that \a angles, in degrees, give in the order that \a order, the text of a
/// field, has in quotes.
Numbers rotationOf(const Numbers &angles, const std::string &order)
{
    constexpr double Degree = 3.14159265358979323846 / 180;
    const osg::Quaterniond rotation = osg::quatFromEuler(
        osg::Vec3d(angles[0] * Degree, angles[1] * Degree, angles[2] * Degree), order.substr(1, 3));
    Numbers numbers;
    for (osg::UInt32 i = 0; i < 4; ++i)
        numbers.push_back(static_cast<float>(rotation[i]));
    return numbers;
}

/// Whether \a older is sure to take in \a newer.
bool willMerge(const QUndoCommand *older, const QUndoCommand *newer)
{
    const auto *before = dynamic_cast<const ksUndoCommand *>(older);
    return before != nullptr && dynamic_cast<const ksUndoCommand *>(newer) != nullptr &&
           before->canMergeWith(newer);
}

} // namespace

ksCheckedHistory *ksCheckedHistory::receiver = nullptr;

ksCheckedHistory::ksCheckedHistory(const osg::NodePtr &scene, ksTranscript &record, ksUndoStack *stack)
    : ksEditHistory(scene, stack)
    , transcript(record)
    , current(scene, {})
    , mirrored(current)
{
    snapshots.push_back(current);
    receiver = this;
    stack->setMessageCallback(&ksCheckedHistory::receiveMessage);
    connect(stack, &ksUndoStack::redoPerformed, this, &ksCheckedHistory::commandPerformed);
    connect(stack, &ksUndoStack::cleared, this, &ksCheckedHistory::forgetSnapshots);
}

ksCheckedHistory::~ksCheckedHistory()
{
    stack()->disconnect(this);
    stack()->setMessageCallback(nullptr);
    receiver = nullptr;
    close();
    mirror.update();
}

void ksCheckedHistory::add(QUndoCommand *command)
{
    if (isSnapshotDue && !willMerge(stack()->currentCommand(), command))
        keepSnapshot(ksSceneSnapshot(root(), current));
    const std::function<ksExpectations()> inexact = ksInexactUndo::watch(*command, root());
    ksEditHistory::add(command);
    const ksExpectations expected = inexact();
    for (const ksExpectedDifference &difference : expected.differences)
        expect(difference);
    for (const ksExpectedRounding &rounding : expected.roundings)
        expect(rounding);
}

void ksCheckedHistory::drag(int events, const std::function<QUndoCommand *(int event)> &make)
{
    // Within another step, which may go on after the drag, every command is looked at.
    const QScopedValueRollback<bool> guard(dragging, !isStepping());
    ksEditHistory::drag(events, make);
}

void ksCheckedHistory::beginPart(const QString &title)
{
    transcript.beginPart(title);
}

bool ksCheckedHistory::check()
{
    const int before = differenceCount();
    step(QStringLiteral("check"), [] {});
    return differenceCount() == before;
}

bool ksCheckedHistory::verify(bool holds, const QString &text)
{
    if (!holds)
        transcript.fault(QStringLiteral("FAILS"), text);
    return holds;
}

void ksCheckedHistory::expect(const ksExpectedDifference &difference)
{
    expectations.differences.push_back(difference);
}

void ksCheckedHistory::expect(const ksExpectedRounding &rounding)
{
    expectations.roundings.push_back(rounding);
}

int ksCheckedHistory::differenceCount() const
{
    return transcript.faultCount();
}

int ksCheckedHistory::containerCount() const
{
    return current.count(ksSceneSnapshot::Scope::Scene);
}

void ksCheckedHistory::commandPerformed(const QUndoCommand *command, bool added)
{
    if (command == nullptr || !added)
        return;
    noteAdded(*command);
    isSnapshotDue = dragging && draggedIndex == stack()->index();
    draggedIndex = stack()->index();
    if (!isSnapshotDue)
        keepSnapshot(ksSceneSnapshot(root(), current));
}

void ksCheckedHistory::forgetSnapshots()
{
    // What only commands and aspect 1 held goes with the latter.
    takeSnapshots();
    snapshots.assign(1, current);
    // Nothing is left that could come back.
    expectations = {};
    originals.clear();
}

void ksCheckedHistory::noteAdded(const QUndoCommand &command)
{
    addedIds.insert(command.id());
    for (int i = 0; i < command.childCount(); ++i)
        noteAdded(*command.child(i));
}

void ksCheckedHistory::keepSnapshot(const ksSceneSnapshot &snapshot)
{
    // A command that merged leaves the index where it was, and what the index stands for has changed.
    snapshots.resize(static_cast<std::size_t>(stack()->index()));
    snapshots.push_back(snapshot);
}

bool ksCheckedHistory::receiveMessage(const char *name, ksMessage &message, int)
{
    QStringList entries;
    for (const auto &[key, value] : message.values())
        entries += QString::fromStdString(key) + QLatin1Char('=') + valueText(value);
    const QString text = QString::fromLatin1(name) + QLatin1Char(' ') + entries.join(QLatin1Char(' '));
    if (receiver->messageCount > 0 && receiver->message != text)
        receiver->noteMessages();
    receiver->message = text;
    ++receiver->messageCount;
    return true;
}

void ksCheckedHistory::noteMessages()
{
    if (messageCount > 0)
        transcript.note(QStringLiteral("message"),
                        messageCount == 1 ? message
                                          : message + QStringLiteral(" (%1 times)").arg(messageCount));
    messageCount = 0;
}

void ksCheckedHistory::beginStep(const QString &what)
{
    draggedIndex = 0;
    if (isInMacro()) {
        transcript.note(QStringLiteral("within"), what);
        return;
    }
    if (mayGoOn)
        mayGoOn();
    transcript.step(what);
    beforeStep = current;
}

void ksCheckedHistory::finishStep()
{
    noteMessages();
    takeSnapshots();
    if (isInMacro()) {
        compareWithMirror();
        return;
    }
    if (isSnapshotDue)
        keepSnapshot(current);
    isSnapshotDue = false;
    noteChanges();
    const int found = compareWithHistory() + compareWithMirror();
    transcript.note(QStringLiteral("check"),
                    QStringLiteral("index %1 of %2, %3 containers: %4")
                        .arg(stack()->index())
                        .arg(stack()->count())
                        .arg(containerCount())
                        .arg(found == 0 ? QStringLiteral("no difference")
                                        : ksRecord::counted(found, QStringLiteral("DIFFERENCE"),
                                                            QStringLiteral("DIFFERENCES"))));
}

void ksCheckedHistory::takeSnapshots()
{
    // Aspect 1 comes first, since it may hold the last reference on what has left aspect 0.
    mirror.update([this] { mirrored = ksSceneSnapshot(osg::NullFC, mirrored); });
    current = ksSceneSnapshot(root(), current);
}

void ksCheckedHistory::noteChanges()
{
    const std::vector<ksDifference> changes = beforeStep.differences(current, ksSceneSnapshot::Scope::Scene);
    for (std::size_t i = 0; i < changes.size() && i < ShownLines; ++i)
        transcript.note(QStringLiteral("changed"), withValues(changes[i], QStringLiteral(" -> ")));
    if (changes.size() > ShownLines)
        transcript.note(QStringLiteral("changed"), QStringLiteral("... %1 fields").arg(changes.size()));
}

int ksCheckedHistory::compareWithHistory()
{
    std::vector<ksDifference> found = snapshots.at(static_cast<std::size_t>(stack()->index()))
                                          .differences(current, ksSceneSnapshot::Scope::Kept);
    found.erase(std::remove_if(found.begin(), found.end(),
                               [this](const ksDifference &difference) {
                                   return accept(difference) || acceptRounding(difference);
                               }),
                found.end());
    noteFaults(QStringLiteral("DIFFERS"), found);
    return static_cast<int>(found.size());
}

int ksCheckedHistory::compareWithMirror()
{
    const std::vector<ksDifference> found = current.differences(mirrored, ksSceneSnapshot::Scope::Everything);
    noteFaults(QStringLiteral("STALE"), found);
    return static_cast<int>(found.size());
}

bool ksCheckedHistory::accept(const ksDifference &difference)
{
    const auto expected = std::find_if(expectations.differences.begin(), expectations.differences.end(),
                                       [&difference](const ksExpectedDifference &expectation) {
                                           return expectation.container == difference.container &&
                                                  expectation.field == difference.field &&
                                                  expectation.expected == difference.expected &&
                                                  expectation.actual == difference.actual;
                                       });
    if (expected == expectations.differences.end())
        return false;
    takeOver(difference, expected->reason, [&difference](const ksSceneSnapshot &snapshot) {
        return snapshot.text(difference.container, difference.field) == difference.expected;
    });
    return true;
}

bool ksCheckedHistory::acceptRounding(const ksDifference &difference)
{
    const auto contentOf = [&difference](const ksSceneSnapshot &snapshot) {
        return snapshot.content(difference.container, difference.field);
    };
    const ksSceneSnapshot &known = snapshots.at(static_cast<std::size_t>(stack()->index()));
    const std::string expected = contentOf(known);
    const std::string actual = contentOf(current);
    // What has come back before counts as what it was at first, or many roundings would add up.
    const auto place = std::make_tuple(difference.container, difference.field, expected);
    const auto earlier = originals.find(place);
    const std::string original = earlier != originals.end() ? earlier->second : expected;
    const auto numbersOf = [&difference](const std::string &content, const ksSceneSnapshot &snapshot) {
        // Different angles may be the same rotation.
        const bool areAngles =
            difference.type == "Transform3D" && difference.field == osg::Transform3D::EulerRotationFieldId;
        return areAngles ? rotationOf(numbersIn(content),
                                      snapshot.text(difference.container,
                                                    osg::Transform3D::EulerRotationOrderFieldId))
                         : numbersIn(content);
    };
    const auto rounding = std::find_if(
        expectations.roundings.begin(), expectations.roundings.end(), [&](const ksExpectedRounding &each) {
            return each.container == difference.container && each.field == difference.field &&
                   areNear(numbersOf(original, known), numbersOf(actual, current), each);
        });
    if (rounding == expectations.roundings.end())
        return false;
    originals[std::make_tuple(difference.container, difference.field, actual)] = original;
    takeOver(difference, rounding->reason,
             [&](const ksSceneSnapshot &snapshot) { return contentOf(snapshot) == expected; });
    return true;
}

void ksCheckedHistory::takeOver(const ksDifference &difference, const QString &reason,
                                const std::function<bool(const ksSceneSnapshot &)> &holdsExpected)
{
    ++tolerated;
    transcript.note(QStringLiteral("expected"), withValues(difference, QStringLiteral(" came back as ")) +
                                                    QStringLiteral(" (") + reason + QLatin1Char(')'));
    for (ksSceneSnapshot &snapshot : snapshots)
        if (holdsExpected(snapshot))
            snapshot.adopt(current, difference.container, difference.field);
}

void ksCheckedHistory::noteFaults(const QString &label, const std::vector<ksDifference> &differences)
{
    for (std::size_t i = 0; i < differences.size() && i < ShownLines; ++i)
        transcript.fault(label, describe(differences[i]) + QStringLiteral(": expected ") +
                                    QString::fromStdString(differences[i].expected) +
                                    QStringLiteral(", is ") + QString::fromStdString(differences[i].actual));
    if (differences.size() > ShownLines)
        transcript.fault(label, QStringLiteral("... %1 fields").arg(differences.size()),
                         static_cast<int>(differences.size() - ShownLines));
}
