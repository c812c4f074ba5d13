// SPDX-License-Identifier: MIT
#include "ksFuzzTarget.h"

#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>
#include <ksundo/field/ksStringFieldUndoCommand.h>
#include <ksundo/field/ksStringsFieldUndoCommand.h>
#include <ksundo/field/ksUndoUtil.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldFactory.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGVecFieldTypes.h>

#include <memory>
#include <set>
#include <string>
#include <support/ksFieldTexts.h>
#include <support/ksRecords.h>

namespace {

/// One container of each class that there are containers of, by the names of their types.
const std::map<std::string, osg::RefPtr<osg::FieldContainerPtr>> &containers()
{
    static const auto made = [] {
        std::map<std::string, osg::RefPtr<osg::FieldContainerPtr>> result;
        auto &factory = *osg::FieldContainerFactory::the();
        for (auto type = factory.beginTypes(); type != factory.endTypes(); ++type)
            if (!type->second->isAbstract())
                result[type->second->getCName()] = type->second->createFieldContainer();
        return result;
    }();
    return made;
}

/// What all of them hold, and how many references are held on them.
std::map<std::string, std::pair<ksFieldTexts, osg::Int32>> allTexts()
{
    std::map<std::string, std::pair<ksFieldTexts, osg::Int32>> texts;
    for (const auto &[name, container] : containers())
        texts[name] = {ksFieldTextsOf(container), container.get().getRefCount()};
    return texts;
}

/// A field, as an input has it.
struct Target
{
    osg::FieldContainerPtr container;
    bool isNamed;
    std::string name;
    int id;

    ksFieldKey key() const { return isNamed ? ksFieldKey(name) : ksFieldKey(id); }

    /// Its id; 0 when there is no such field.
    osg::UInt32 expectedId() const
    {
        const osg::FieldContainerType &type = container->getType();
        if (!isNamed)
            return id > 0 && static_cast<osg::UInt32>(id) <= type.getNumFieldDescs()
                       ? static_cast<osg::UInt32>(id)
                       : 0;
        for (osg::UInt32 candidate = 1; candidate <= type.getNumFieldDescs(); ++candidate)
            if (isFoundBy(type.getFieldDescription(candidate)->getCName()))
                return candidate;
        return 0;
    }

private:
    bool isFoundBy(std::string fieldName) const
    {
        if (fieldName == "parents" ||
            (fieldName == "volume" && container->getType() == osg::Node::getClassType()))
            return false;
        if (fieldName == name)
            return true;
        const std::string upper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
        const std::string lower = "abcdefghijklmnopqrstuvwxyz";
        if (const std::size_t letter = upper.find(fieldName[0]); letter != std::string::npos)
            fieldName[0] = lower[letter];
        else if (const std::size_t other = lower.find(fieldName[0]); other != std::string::npos)
            fieldName[0] = upper[other];
        return fieldName == name;
    }
};

/// A value, as an input has it.
struct Value
{
    std::string text;

    template <class T>
    T as() const
    {
        T value{};
        osg::ValueText<T>::getFromString(value, text.c_str());
        return value;
    }
};

/// Makes the command of one class, or of one factory, if it makes any.
using Maker = void (*)(const Target &, const Value &, QUndoCommand *parent);

template <class T>
void makeField(const Target &target, const Value &value, QUndoCommand *parent)
{
    new ksFieldUndoCommand<T>(QString(), target.container, target.key(), value.as<T>(), parent);
}

void makeFlag(const Target &target, const Value &value, QUndoCommand *parent)
{
    new ksBoolFieldUndoCommand(target.container, target.key(), value.as<bool>(), parent);
}

void makeString(const Target &target, const Value &value, QUndoCommand *parent)
{
    new ksStringFieldUndoCommand(target.container, target.key(), value.text, parent);
}

void makeStrings(const Target &target, const Value &value, QUndoCommand *parent)
{
    osg::MFString strings;
    for (ksFuzzInput words(value.text); !words.isAtEnd();)
        strings.push_back(words.line());
    new ksStringsFieldUndoCommand(target.container, target.key(), strings, parent);
}

void makeImage(const Target &target, const Value &value, QUndoCommand *parent)
{
    const osg::FieldContainerPtr image = containers().at("Image");
    new ksImageFieldUndoCommand(target.container, target.key(),
                                value.text.empty() ? osg::ImagePtr() : osg::ImagePtr::dcast(image), parent);
}

void makeByIntFactory(const Target &target, const Value &value, QUndoCommand *parent)
{
    ksUndoUtil::makeIntTypeCommand(QString(), target.container, target.name, value.as<long long>(), parent);
}

void makeByFloatFactory(const Target &target, const Value &value, QUndoCommand *parent)
{
    ksUndoUtil::makeFloatTypeCommand(QString(), target.container, target.name, value.as<double>(), parent);
}

/// By the words that inputs have for them.
const std::map<std::string, Maker> &makers()
{
    static const std::map<std::string, Maker> all = {{"flag", &makeFlag},
                                                     {"string", &makeString},
                                                     {"strings", &makeStrings},
                                                     {"image", &makeImage},
                                                     {"integer", &makeByIntFactory},
                                                     {"floating", &makeByFloatFactory},
                                                     {"int64", &makeField<osg::Int64>},
                                                     {"uint64", &makeField<osg::UInt64>},
                                                     {"int", &makeField<int>},
                                                     {"uint", &makeField<unsigned int>},
                                                     {"short", &makeField<short>},
                                                     {"ushort", &makeField<unsigned short>},
                                                     {"schar", &makeField<signed char>},
                                                     {"uchar", &makeField<unsigned char>},
                                                     {"float", &makeField<float>},
                                                     {"double", &makeField<double>},
                                                     {"vector", &makeField<osg::Vec3f>},
                                                     {"colour", &makeField<osg::Color3f>}};
    return all;
}

/// Whether the field \a field of containers of the class \a type is computed from others of its container.
bool followsOthers(const std::string &type, const std::string &field)
{
    static const std::set<std::string> following = {
        "Transform3D.matrix", "Transform3D.rotation", "Transform3D.eulerRotation",
        "Image.frameSize",    "Image.sideSize",       "Image.bpp"};
    return following.count(type + '.' + field) > 0;
}

/// Types are found by their whole name, and by their id, or not at all.
void requireTypeTables(const std::string &name, int id)
{
    auto &factory = *osg::FieldContainerFactory::the();
    const std::string shown = name.substr(0, name.find('\0'));
    if (const osg::FieldContainerType *type = factory.findType(name.c_str()))
        ksRequireEqual(type->getCName(), shown, "a type of containers is found");
    if (const osg::FieldContainerType *type = factory.findType(static_cast<osg::UInt32>(id)))
        ksRequire(type->getId() == static_cast<osg::UInt32>(id),
                  "a type of containers is found by another id");
    if (const char *group = factory.findGroupName(factory.findGroupId(name.c_str())))
        ksRequireEqual(group, shown, "a group is found");
    const osg::RefPtr<osg::FieldContainerPtr> container(factory.createFieldContainer(name.c_str()));
    ksRequire((container != osg::NullFC) == (containers().count(shown) > 0),
              "a container is made, or not: " + name);

    const osg::FieldType *type = osg::FieldFactory::getFieldType(name.c_str());
    const std::unique_ptr<osg::Field> field(osg::FieldFactory::the().createField(name.c_str()));
    ksRequire((type != nullptr) == (field != nullptr), "a field is made, or not: " + name);
    if (field != nullptr)
        ksRequireEqual(field->getType().getCName(), shown, "a field is made");
    const std::unique_ptr<osg::Field> other(
        osg::FieldFactory::the().createField(static_cast<osg::UInt32>(id)));
    ksRequire(other == nullptr || other->getType().getId() == static_cast<osg::UInt32>(id),
              "a field of another id");
}

/// A command on any field of any container changes that field and nothing else, and undoing it brings back
/// what was before; where there is no such field, it does nothing at all.
void editField(std::string_view text)
{
    ksFuzzInput input(text);
    const osg::FieldContainerPtr container = ksFuzzChoice(containers(), input.line()).second;
    const auto &[makerName, make] = ksFuzzChoice(makers(), input.line());
    const std::string key = input.line();
    const bool isNamed = key.empty() || key[0] != '#';
    const int id = isNamed ? 0 : Value{key.substr(1)}.as<int>();
    const Target target{container, isNamed, key, id};
    const Value value{input.rest()};

    // Every input leaves it so.
    static const auto before = allTexts();
    requireTypeTables(key, id);
    const osg::UInt32 expected = target.expectedId();
    const osg::FieldDescription *found = target.key().findIn(container);
    ksRequire((found != nullptr ? found->getFieldId() : 0) == expected, "another field is found: " + key);
    const std::string fieldName = found != nullptr ? found->getCName() : "";

    ksRecorder recorder;
    // As a flag, an integer other than 0 comes back as 1.
    ksFieldTexts own = before.at(container->getTypeName()).first;
    const std::string original = found != nullptr ? own[fieldName] : "";
    const auto requireSame = [&](const char *what) {
        for (const auto &[field, shown] : ksFieldTextsOf(container))
            ksRequireEqual(shown, own.at(field), field + " after " + what);
    };
    {
        QUndoCommand group;
        make(target, value, &group);
        requireSame("building");
        ksRequire(recorder.take().changed.empty(), "building has been recorded");
        group.redo();
        const ksRecords done = recorder.take();
        if (make == &makeFlag && !done.changed.empty() && original != "0" && original != "FALSE")
            own[fieldName] = original == "TRUE" ? "TRUE" : "1";
        const ksFieldTexts after = ksFieldTextsOf(container);
        for (const auto &[name, texts] : allTexts())
            for (const auto &[field, shown] : texts.first)
                if (name != container->getTypeName() || (field != fieldName && !followsOthers(name, field)))
                    ksRequireEqual(shown, before.at(name).first.at(field),
                                   name + '.' + field + " after a redo");
        group.undo();
        requireSame("an undo");
        recorder.take();
        group.redo();
        ksRequire(ksFieldTextsOf(container) == after, "another redo does something else");
        ksRequire(recorder.take().changed == done.changed, "another redo records something else");
        group.undo();
        if (found == nullptr)
            ksRequire(done == ksRecords(), "a command without a field has done something");
    }
    if (found != nullptr && own[fieldName] != original)
        container->getField(expected)->pushValueByStr(original.c_str());
    ksRequire(allTexts() == before, "something is left of a command that has gone");
    recorder.take();
}

const ksFuzzTarget fieldNames("field-names", &editField);

} // namespace
