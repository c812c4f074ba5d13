// SPDX-License-Identifier: MIT
#include <OpenSG/OSGImage.h>

#include <algorithm>
#include <limits>
#include <vector>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(Image, AttachmentContainer, "", OSG_IMAGE_FIELDS)

namespace {

/// 0 for an unknown format.
Int32 componentsOf(UInt32 pixelFormat)
{
    switch (pixelFormat) {
    case Image::OSG_A_PF:
    case Image::OSG_L_PF:
        return 1;
    case Image::OSG_LA_PF:
        return 2;
    case Image::OSG_RGB_PF:
    case Image::OSG_BGR_PF:
        return 3;
    case Image::OSG_RGBA_PF:
    case Image::OSG_BGRA_PF:
        return 4;
    default:
        return 0;
    }
}

/// Bytes; 0 for an unknown type.
Int32 sizeOfType(Int32 type)
{
    switch (type) {
    case Image::OSG_UINT8_IMAGEDATA:
        return 1;
    case Image::OSG_UINT16_IMAGEDATA:
    case Image::OSG_FLOAT16_IMAGEDATA:
        return 2;
    case Image::OSG_UINT32_IMAGEDATA:
    case Image::OSG_FLOAT32_IMAGEDATA:
        return 4;
    default:
        return 0;
    }
}

/// Pixels of all levels, each half as large as the one before, but at least 1.
Real64 pixelsOfLevels(Int32 width, Int32 height, Int32 depth, Int32 levels)
{
    Real64 pixels = 0;
    for (Int32 level = 0; level < levels; ++level) {
        pixels += Real64(width) * height * depth;
        width = std::max(width / 2, 1);
        height = std::max(height / 2, 1);
        depth = std::max(depth / 2, 1);
    }
    return pixels;
}

FieldContainerPtr marked(FieldContainerPtr parent, UInt32 fieldId)
{
    parent.setParentFieldPos(static_cast<UInt16>(fieldId));
    return parent;
}

} // namespace

Image::Image(const Image &source)
    : Inherited(source)
{
    _mfParents.clear();
}

bool Image::set(UInt32 pixelFormat, Int32 width, Int32 height, Int32 depth, Int32 mipMapCount,
                Int32 frameCount, Time frameDelay, const UInt8 *data, Int32 type, bool allocate,
                Int32 sideCount)
{
    const Int32 componentSize = sizeOfType(type);
    const Int32 bpp = componentsOf(pixelFormat) * componentSize;
    if (bpp == 0 || std::min({width, height, depth, mipMapCount, frameCount, sideCount}) < 1) {
        return false;
    }
    const Real64 wantedSideSize = pixelsOfLevels(width, height, depth, mipMapCount) * bpp;
    if (wantedSideSize * sideCount * frameCount > std::numeric_limits<Int32>::max()) {
        return false;
    }
    const Int32 sideSize = static_cast<Int32>(wantedSideSize);
    {
        const CPEditor edit(ImagePtr(*this), DimensionFieldMask | WidthFieldMask | HeightFieldMask |
                                                 DepthFieldMask | BppFieldMask | MipMapCountFieldMask |
                                                 FrameCountFieldMask | FrameDelayFieldMask |
                                                 PixelFormatFieldMask | FrameSizeFieldMask |
                                                 DataTypeFieldMask | ComponentSizeFieldMask |
                                                 SideCountFieldMask | SideSizeFieldMask);
        setDimension(depth > 1 ? 3 : height > 1 ? 2 : 1);
        setWidth(width);
        setHeight(height);
        setDepth(depth);
        setBpp(bpp);
        setMipMapCount(mipMapCount);
        setFrameCount(frameCount);
        setFrameDelay(frameDelay);
        setPixelFormat(pixelFormat);
        setDataType(type);
        setComponentSize(componentSize);
        setSideCount(sideCount);
        setSideSize(sideSize);
        setFrameSize(sideSize * sideCount);
    }
    const CPEditor edit(ImagePtr(*this), PixelFieldMask);
    const UInt32 bytes = allocate ? static_cast<UInt32>(getFrameSize() * frameCount) : 0;
    _mfPixel.clear();
    if (data != nullptr) {
        _mfPixel.getValues().assign(data, data + bytes);
    } else {
        _mfPixel.resize(bytes);
    }
    return true;
}

UInt8 *Image::getData(void)
{
    return _mfPixel.empty() ? nullptr : &_mfPixel.front();
}

void Image::addParent(const FieldContainerPtr &parent, UInt32 fieldId)
{
    _mfParents.push_back(marked(parent, fieldId));
}

void Image::subParent(const FieldContainerPtr &parent, UInt32 fieldId)
{
    const auto found =
        std::find_if(_mfParents.begin(), _mfParents.end(), [&](const FieldContainerPtr &entry) {
            return entry == parent && entry.getParentFieldPos() == fieldId;
        });
    if (found != _mfParents.end()) {
        _mfParents.erase(found);
    }
}

void Image::changed(BitVector whichField, UInt32 origin)
{
    // Handlers may edit the list.
    const std::vector<FieldContainerPtr> parents(_mfParents.begin(), _mfParents.end());
    for (const FieldContainerPtr &parent : parents) {
        const UInt16 field = parent.getParentFieldPos();
        const BitVector mask = field < 64 ? TypeTraits<BitVector>::One << field : FieldBits::AllFields;
        changedCP(parent, mask, ChangedOrigin::Child);
    }
    Inherited::changed(whichField, origin);
}

OSG_END_NAMESPACE
