// SPDX-License-Identifier: MIT
#include <OpenSG/OSGFieldFactory.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSFSysTypes.h>

#include <gtest/gtest.h>

#include <string>

// Casts of access methods to their common type are part of the way in which these classes are written.
#pragma GCC diagnostic ignored "-Wcast-function-type"

// NOLINTBEGIN(modernize-use-*,readability-redundant-member-init)

// What a generator writes for class Dial, without access to binary data: the fields, the base class, its
// source.

OSG_BEGIN_NAMESPACE

class Dial;
typedef FCPtr<NodeCorePtr, Dial> DialPtr;

template <>
struct FieldDataTraits<DialPtr> : public FieldTraitsRecurseMapper<DialPtr, true>
{
    static DataType _type;

    static DataType &getType(void) { return _type; }
    static const char *getSName(void) { return "SFDialPtr"; }
    static const char *getMName(void) { return "MFDialPtr"; }
};

typedef SField<DialPtr> SFDialPtr;
typedef MField<DialPtr> MFDialPtr;

class DialBase : public NodeCore
{
private:
    typedef NodeCore Inherited;

public:
    typedef DialPtr Ptr;

    enum
    {
        LevelFieldId = Inherited::NextFieldId,
        NextDialFieldId = LevelFieldId + 1,
        NextFieldId = NextDialFieldId + 1
    };

    static const BitVector LevelFieldMask;
    static const BitVector NextDialFieldMask;
    static const BitVector MTInfluenceMask;

    static FieldContainerType &getClassType(void) { return _type; }
    static UInt32 getClassTypeId(void) { return _type.getId(); }
    virtual FieldContainerType &getType(void) { return _type; }
    virtual const FieldContainerType &getType(void) const { return _type; }
    virtual UInt32 getContainerSize(void) const;

    SFReal32 *getSFLevel(void) { return &_sfLevel; }
    SFDialPtr *getSFNextDial(void) { return &_sfNextDial; }
    Real32 &getLevel(void) { return _sfLevel.getValue(); }
    const Real32 &getLevel(void) const { return _sfLevel.getValue(); }
    void setLevel(const Real32 &value) { _sfLevel.setValue(value); }

    static DialPtr create(void);
    static DialPtr createEmpty(void);
    virtual FieldContainerPtr shallowCopy(void) const;

protected:
    SFReal32 _sfLevel;
    SFDialPtr _sfNextDial;

    DialBase(void);
    DialBase(const DialBase &source);
    virtual ~DialBase(void);

    void executeSyncImpl(DialBase *pOther, const BitVector &whichField);
    virtual void executeSync(FieldContainer &other, const BitVector &whichField);

private:
    friend class FieldContainer;

    static FieldDescription *_desc[];
    static FieldContainerType _type;

    void operator=(const DialBase &source);
};

// The class itself, written once by hand.

class Dial : public DialBase
{
private:
    typedef DialBase Inherited;

public:
    virtual void changed(BitVector whichField, UInt32 origin);
    virtual void dump(UInt32 uiIndent = 0, const BitVector bvFlags = 0) const;

    static int starts;
    int edits = 0;

protected:
    Dial(void) = default;
    Dial(const Dial &source) = default;
    virtual ~Dial(void) = default;

private:
    friend class FieldContainer;
    friend class DialBase;

    static void initMethod(void) { ++starts; }

    void operator=(const Dial &source);
};

int Dial::starts = 0;

void Dial::changed(BitVector whichField, UInt32 origin)
{
    ++edits;
    Inherited::changed(whichField, origin);
}

void Dial::dump(UInt32 uiIndent, const BitVector bvFlags) const
{
    Inherited::dump(uiIndent, bvFlags);
}

const BitVector DialBase::LevelFieldMask = (TypeTraits<BitVector>::One << DialBase::LevelFieldId);
const BitVector DialBase::NextDialFieldMask = (TypeTraits<BitVector>::One << DialBase::NextDialFieldId);
const BitVector DialBase::MTInfluenceMask =
    (Inherited::MTInfluenceMask) | (static_cast<BitVector>(0x0) << Inherited::NextFieldId);

FieldDescription *DialBase::_desc[] = {
    new FieldDescription(SFReal32::getClassType(), "level", LevelFieldId, LevelFieldMask, false,
                         (FieldAccessMethod)&DialBase::getSFLevel),
    new FieldDescription(SFDialPtr::getClassType(), "nextDial", NextDialFieldId, NextDialFieldMask, false,
                         (FieldAccessMethod)&DialBase::getSFNextDial)};

FieldContainerType DialBase::_type("Dial", "NodeCore", NULL, (PrototypeCreateF)&DialBase::createEmpty,
                                   Dial::initMethod, _desc, sizeof(_desc));

UInt32 DialBase::getContainerSize(void) const
{
    return sizeof(Dial);
}

DialPtr DialBase::create(void)
{
    DialPtr fc;
    if (getClassType().getPrototype() != NullFC) {
        fc = DialPtr::dcast(getClassType().getPrototype()->shallowCopy());
    }
    return fc;
}

DialPtr DialBase::createEmpty(void)
{
    DialPtr returnValue;
    newPtr(returnValue);
    return returnValue;
}

FieldContainerPtr DialBase::shallowCopy(void) const
{
    DialPtr returnValue;
    newPtr(returnValue, dynamic_cast<const Dial *>(this));
    return returnValue;
}

DialBase::DialBase(void)
    : Inherited()
    , _sfLevel(Real32(0.5))
    , _sfNextDial(DialPtr(NullFC))
{}

DialBase::DialBase(const DialBase &source)
    : Inherited(source)
    , _sfLevel(source._sfLevel)
    , _sfNextDial(source._sfNextDial)
{}

DialBase::~DialBase(void)
{}

void DialBase::executeSync(FieldContainer &other, const BitVector &whichField)
{
    this->executeSyncImpl((DialBase *)&other, whichField);
}

void DialBase::executeSyncImpl(DialBase *pOther, const BitVector &whichField)
{
    Inherited::executeSyncImpl(pOther, whichField);
    if (FieldBits::NoField != (LevelFieldMask & whichField)) {
        _sfLevel.syncWith(pOther->_sfLevel);
    }
    if (FieldBits::NoField != (NextDialFieldMask & whichField)) {
        _sfNextDial.syncWith(pOther->_sfNextDial);
    }
}

DataType FieldDataTraits<DialPtr>::_type("DialPtr", "NodeCorePtr");

OSG_DLLEXPORT_SFIELD_DEF1(DialPtr, OSG_NO_DLL);
OSG_DLLEXPORT_MFIELD_DEF1(DialPtr, OSG_NO_DLL);

// A class of the base level, whose usual members come from macros.

class Knob;
typedef FCPtr<FieldContainerPtr, Knob> KnobPtr;

class Knob : public FieldContainer
{
private:
    typedef FieldContainer Inherited;

public:
    OSG_FIELD_CONTAINER_DECL(KnobPtr)

    enum
    {
        TurnFieldId = Inherited::NextFieldId,
        NextFieldId = TurnFieldId + 1
    };

    static const BitVector TurnFieldMask;

    SFInt32 *getSFTurn(void) { return &_sfTurn; }

protected:
    Knob(void) = default;
    Knob(const Knob &source)
        : Inherited(source)
        , _sfTurn(source._sfTurn)
    {}
    virtual ~Knob(void) = default;

private:
    friend class FieldContainer;

    static FieldDescription *_desc[];
    static FieldContainerType _type;

    SFInt32 _sfTurn;
};

OSG_FIELD_CONTAINER_INL_DEF(Knob, KnobPtr)
OSG_FIELD_CONTAINER_DEF(Knob, KnobPtr)

const BitVector Knob::TurnFieldMask = (TypeTraits<BitVector>::One << Knob::TurnFieldId);

FieldDescription *Knob::_desc[] = {new FieldDescription(
    SFInt32::getClassType(), "turn", TurnFieldId, TurnFieldMask, false, (FieldAccessMethod)&Knob::getSFTurn)};

FieldContainerType Knob::_type("Knob", "FieldContainer", NULL, (PrototypeCreateF)&Knob::createEmpty, NULL,
                               _desc, sizeof(_desc));

/// An abstract one.
class Lever : public FieldContainer
{
public:
    typedef FCPtr<FieldContainerPtr, Lever> LeverPtr;

    OSG_ABSTR_FIELD_CONTAINER_DECL(LeverPtr)

private:
    static FieldContainerType _type;
};

OSG_ABSTR_FIELD_CONTAINER_INL_DEF(Lever, Lever::LeverPtr)
OSG_ABSTR_FIELD_CONTAINER_DEF(Lever, Lever::LeverPtr)

FieldContainerType Lever::_type("Lever", "FieldContainer", NULL, NULL, NULL, NULL, 0);

OSG_END_NAMESPACE

// NOLINTEND(modernize-use-*,readability-redundant-member-init)

namespace {

using namespace osg;

TEST(OSGWrittenOutClass, IsAContainerLikeAnyOther)
{
    EXPECT_EQ(Dial::starts, 1);
    RefPtr<DialPtr> dial(Dial::create());
    const NodeRefPtr node(Node::create());
    node->setCore(dial);
    EXPECT_EQ(dial->getLevel(), 0.5f);
    EXPECT_STREQ(dial->getTypeName(), "Dial");
    EXPECT_EQ(dial->getField("level"), dial->getSFLevel());
    EXPECT_EQ(dial->getContainerSize(), sizeof(Dial));

    dial->edits = 0;
    dial->setLevel(2);
    endEditCP(dial, Dial::LevelFieldMask);
    EXPECT_EQ(dial->edits, 1);
    Thread::getCurrentChangeList()->applyTo(1);
    const AspectScope scope(1);
    EXPECT_EQ(dial->getLevel(), 2);
    EXPECT_TRUE(dial->getParents(0) == node.get());
}

TEST(OSGWrittenOutClass, CopiesItsFields)
{
    const RefPtr<DialPtr> dial(Dial::create());
    dial->setLevel(3);
    const RefPtr<DialPtr> copy(DialPtr::dcast(dial->shallowCopy()));
    EXPECT_EQ(copy->getLevel(), 3);
}

TEST(OSGWrittenOutClass, HasFieldsOfItsHandles)
{
    const RefPtr<DialPtr> dial(Dial::create());
    const NodeRefPtr node(Node::create());
    SFDialPtr field;
    std::string text;
    field.pushValueByStr(std::to_string(dial.get().getFieldContainerId()).c_str());
    EXPECT_TRUE(field.getValue() == dial);
    field.pushValueByStr(std::to_string(node.get().getFieldContainerId()).c_str());
    EXPECT_TRUE(field.getValue() == dial) << "a container of another class";
    EXPECT_EQ(FieldFactory::the().getFieldType("MFDialPtr"), &MFDialPtr::getClassType());
    EXPECT_STREQ(field.getContentType().getCName(), "DialPtr");
}

TEST(OSGWrittenOutClass, MayTakeItsUsualMembersFromMacros)
{
    const RefPtr<KnobPtr> knob(Knob::create());
    knob->getSFTurn()->setValue(4);
    const RefPtr<KnobPtr> copy(KnobPtr::dcast(knob->shallowCopy()));
    EXPECT_EQ(copy->getSFTurn()->getValue(), 4);
    EXPECT_TRUE(copy->getPtr() == copy);
    EXPECT_EQ(&copy->getType(), &Knob::getClassType());
    EXPECT_EQ(Knob::getClassTypeId(), copy->getTypeId());
    EXPECT_EQ(Knob::getClassGroupId(), copy->getGroupId());
    EXPECT_EQ(copy->getContainerSize(), sizeof(Knob));
    EXPECT_TRUE(Lever::getClassType().isAbstract());
}

} // namespace
