// SPDX-License-Identifier: MIT
#include "OSGColorComponent.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(ColorComponent, AttachmentContainer, "", OSG_COLOR_COMPONENT_FIELDS)

ColorComponent::ColorComponent(const ColorComponent &source)
    : Inherited(source)
{
    _sfImage.setValue(NullFC);
}

ColorComponent::~ColorComponent(void)
{
    setImage(NullFC);
}

void ColorComponent::setImage(const ImagePtr &image)
{
    setRefdCP(_sfImage.getValue(), image);
}

OSG_END_NAMESPACE
