// SPDX-License-Identifier: MIT
#include "ksFuzzTarget.h"
#include <editor/scene/ksFieldReader.h>

#include <ksundo/field/ksStringFieldUndoCommand.h>
#include <ksundo/field/ksStringsFieldUndoCommand.h>

#include <OpenSG/OSGFieldFactory.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <memory>
#include <support/OSGProbeContainer.h>

namespace {

using FieldTypes = std::map<std::string, const osg::FieldType *>;

const FieldTypes &fieldTypes()
{
    static const FieldTypes types = [] {
        FieldTypes result;
        for (osg::UInt32 id = 0; result.size() < osg::FieldFactory::getNFieldTypes(); ++id)
            if (const osg::FieldType *type = osg::FieldFactory::getFieldType(id))
                result[type->getCName()] = type;
        return result;
    }();
    return types;
}

std::string textOf(const osg::Field &field)
{
    std::string text;
    return field.getValueByStr(text);
}

void requireSame(const osg::Field &actual, const osg::Field &expected, const std::string &what)
{
    ksRequireEqual(textOf(actual), textOf(expected), what);
    ksRequire(ksFieldReader::content(actual) == ksFieldReader::content(expected), what + " in its text only");
}

/// What a field has read, it writes in a way that it reads again the same.
void readField(const osg::FieldType &type, const std::string &text)
{
    const std::unique_ptr<osg::Field> field(type.createField());
    field->pushValueByStr(text.c_str());
    const bool isList = type.getCardinality() == osg::FieldType::MULTI_FIELD;
    ksRequire(field->getSize() == 1, "there is not one value");

    const std::unique_ptr<osg::Field> again(type.createField());
    again->pushValueByStr(textOf(*field).c_str());
    requireSame(*again, *field, std::string(type.getCName()) + " reads what it has written");

    const std::unique_ptr<osg::Field> copy(type.createField());
    copy->setAbstrValue(*field);
    requireSame(*copy, *field, std::string(type.getCName()) + " is copied");
    if (isList) {
        const std::string once = textOf(*field);
        field->pushValueByStr(text.c_str());
        ksRequire(field->getSize() == 2, "a list has not grown by one");
        ksRequireEqual(textOf(*field), once + ", " + once, "a list of two");
    }
}

/// The commands on texts write any, and bring back any.
void editTexts(const std::string &text)
{
    const osg::RefPtr<osg::ProbeContainerPtr> probe(osg::ProbeContainer::create());
    const std::string old(text.rbegin(), text.rend());
    probe->setText(old);
    ksStringFieldUndoCommand command(probe.get(), "text", text);
    command.redo();
    ksRequireEqual(probe->getText(), text, "a redo");
    command.undo();
    ksRequireEqual(probe->getText(), old, "an undo");

    osg::MFString words;
    for (ksFuzzInput lines(text); !lines.isAtEnd();)
        words.push_back(lines.line());
    probe->getMFWords()->push_back(old);
    const osg::MFString oldWords = *probe->getMFWords();
    ksStringsFieldUndoCommand list(probe.get(), "words", words);
    list.redo();
    requireSame(*probe->getMFWords(), words, "a redo");
    list.undo();
    requireSame(*probe->getMFWords(), oldWords, "an undo");
}

/// The first line of an input names the type of a field, the rest is the text.
void readText(std::string_view text)
{
    ksFuzzInput input(text);
    const osg::FieldType &type = *ksFuzzChoice(fieldTypes(), input.line()).second;
    const std::string value = input.rest();
    readField(type, value);
    editTexts(value);
    osg::Thread::getCurrentChangeList()->clearAll();
}

const ksFuzzTarget fieldTexts("field-texts", &readText);

} // namespace
