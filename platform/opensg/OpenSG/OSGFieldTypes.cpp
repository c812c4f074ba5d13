// SPDX-License-Identifier: MIT
#include <OpenSG/OSGBaseFieldTypes.h>
#include <OpenSG/OSGContainerPtrFieldTypes.h>
#include <OpenSG/OSGMathFieldTypes.h>
#include <OpenSG/OSGSysFieldTypes.h>
#include <OpenSG/OSGVecFieldTypes.h>

#include <array>
#include <sstream>

OSG_BEGIN_NAMESPACE

bool ValueText<Matrix>::getFromString(Matrix &value, const Char8 *text)
{
    for (UInt32 row = 0; row < 4; ++row) {
        for (UInt32 column = 0; column < 4; ++column) {
            value[column][row] = readNumber<Real32>(text);
        }
    }
    return true;
}

void ValueText<Matrix>::putToString(const Matrix &value, std::string &text)
{
    const Char8 *separator = "";
    Matrix rows;
    value.transposed(rows);
    for (UInt32 row = 0; row < 4; ++row) {
        text += separator;
        ValueText<Vec4f>::putToString(rows[row], text);
        separator = " ";
    }
}

bool ValueText<DynamicVolume>::getFromString(DynamicVolume &value, const Char8 *text)
{
    Pnt3f corners[2];
    for (Pnt3f &corner : corners) {
        for (UInt32 i = 0; i < 3; ++i) {
            corner[i] = readNumber<Real32>(text);
        }
    }
    value.setBounds(corners[0], corners[1]);
    return true;
}

void ValueText<DynamicVolume>::putToString(const DynamicVolume &value, std::string &text)
{
    ValueText<Pnt3f>::putToString(value.getMin(), text);
    text += ' ';
    ValueText<Pnt3f>::putToString(value.getMax(), text);
}

bool ValueText<AttachmentMap>::getFromString(AttachmentMap &value, const Char8 *text)
{
    std::istringstream words{std::string(text)};
    std::string key;
    std::string id;
    AttachmentMap attachments;
    while (words >> key) {
        const Char8 *number = key.c_str();
        AttachmentPtr attachment;
        if (!(words >> id) || !ValueText<AttachmentPtr>::getFromString(attachment, id.c_str())) {
            return false;
        }
        attachments[readNumber<UInt32>(number)] = attachment;
    }
    value = attachments;
    return true;
}

void ValueText<AttachmentMap>::putToString(const AttachmentMap &value, std::string &text)
{
    const Char8 *separator = "";
    for (const auto &[key, attachment] : value) {
        text += separator;
        ValueText<UInt32>::putToString(key, text);
        text += ' ';
        ValueText<AttachmentPtr>::putToString(attachment, text);
        separator = " ";
    }
}

bool readContainerHandle(FieldContainerPtrBase &value, const Char8 *text, const Char8 *handleTypeName)
{
    const Char8 *end = text;
    const UInt32 id = readNumber<UInt32>(end);
    if (end == text) {
        return false;
    }
    if (id == 0) {
        value = NullFC;
        return true;
    }
    const FieldContainerPtr fc = FieldContainerFactory::the()->getContainer(id);
    if (fc == NullFC) {
        return false;
    }
    for (const FieldContainerType *type = &fc->getType(); type != nullptr; type = type->getParent()) {
        if (type->getCName() + std::string("Ptr") == handleTypeName) {
            value = fc;
            return true;
        }
    }
    return false;
}

namespace {

// A field type exists from its first use on. These are there from the start, for the field factory to find by
// name.
template <class... FieldTs>
std::array<const FieldType *, sizeof...(FieldTs)> fieldTypes(void)
{
    return {&FieldTs::getClassType()...};
}

[[maybe_unused]] const auto commonFieldTypes =
    fieldTypes<SFInt8, SFUInt8, SFInt16, SFUInt16, SFInt32, SFUInt32, SFInt64, SFUInt64, SFReal32, SFReal64,
               SFBool, SFString, SFTime, SFBitVector, SFGLenum, SFColor3f, SFColor4f, SFDynamicVolume,
               SFVec2f, SFVec3f, SFVec4f, SFPnt2f, SFPnt3f, SFPnt4f, SFMatrix, SFQuaternion,
               SFFieldContainerPtr, SFAttachmentContainerPtr, SFAttachmentPtr, SFNodePtr, SFNodeCorePtr,
               SFAttachmentMap, MFInt8, MFUInt8, MFInt16, MFUInt16, MFInt32, MFUInt32, MFInt64, MFUInt64,
               MFReal32, MFReal64, MFBool, MFString, MFTime, MFBitVector, MFGLenum, MFColor3f, MFColor4f,
               MFDynamicVolume, MFVec2f, MFVec3f, MFVec4f, MFPnt2f, MFPnt3f, MFPnt4f, MFMatrix, MFQuaternion,
               MFFieldContainerPtr, MFAttachmentContainerPtr, MFAttachmentPtr, MFNodePtr, MFNodeCorePtr>();

} // namespace

OSG_END_NAMESPACE
