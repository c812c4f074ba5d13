// SPDX-License-Identifier: MIT
#include <OpenSG/OSGSimpleTexturedMaterial.h>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(SimpleTexturedMaterial, SimpleMaterial, "", OSG_SIMPLE_TEXTURED_MATERIAL_FIELDS)

SimpleTexturedMaterial::SimpleTexturedMaterial(const SimpleTexturedMaterial &source)
    : Inherited(source)
{
    _sfImage.setValue(NullFC);
}

SimpleTexturedMaterial::~SimpleTexturedMaterial(void)
{
    setImage(NullFC);
}

void SimpleTexturedMaterial::setImage(const ImagePtr &image)
{
    const FieldContainerPtr self(*this);
    ImagePtr previous = getImage();
    addRefCP(image);
    _sfImage.setValue(image);
    if (image != NullFC) {
        const CPEditor edit(image, Image::ParentsFieldMask);
        image->addParent(self, ImageFieldId);
    }
    if (previous != NullFC) {
        {
            const CPEditor edit(previous, Image::ParentsFieldMask);
            previous->subParent(self, ImageFieldId);
        }
        subRefCP(previous);
    }
}

OSG_END_NAMESPACE
