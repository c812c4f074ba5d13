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
    for (Int32 *size : {&width, &height, &depth, &mipMapCount, &frameCount, &sideCount}) {
        *size = std::max(*size, 1);
    }
    const Int32 bpp = componentsOf(pixelFormat) * sizeOfType(type);
    if (pixelsOfLevels(width, height, depth, mipMapCount) * bpp * sideCount * frameCount >
        std::numeric_limits<Int32>::max()) {
        return false;
    }
    {
        const CPEditor edit(ImagePtr(*this), WidthFieldMask | HeightFieldMask | DepthFieldMask |
                                                 MipMapCountFieldMask | FrameCountFieldMask |
                                                 FrameDelayFieldMask | PixelFormatFieldMask |
                                                 DataTypeFieldMask);
        setWidth(width);
        setHeight(height);
        setDepth(depth);
        setBpp(bpp);
        setMipMapCount(mipMapCount);
        setFrameCount(frameCount);
        setFrameDelay(frameDelay);
        setPixelFormat(pixelFormat);
        setDataType(type);
        setSideCount(sideCount);
    }
    return setPixels(data, allocate);
}

bool Image::setPixels(const UInt8 *data, bool allocate)
{
    const CPEditor edit(ImagePtr(*this), DimensionFieldMask | BppFieldMask | PixelFieldMask |
                                             FrameSizeFieldMask | ComponentSizeFieldMask);
    setDimension(getDepth() > 1 ? 3 : getHeight() > 1 ? 2 : 1);
    setBpp(componentsOf(getPixelFormat()) * sizeOfType(getDataType()));
    updateSizes();
    const UInt32 bytes = allocate ? getSize() : 0;
    if (data != nullptr) {
        _mfPixel.getValues().assign(data, data + bytes);
    } else if (_mfPixel.size() != bytes) {
        _mfPixel.clear();
        _mfPixel.resize(bytes);
    }
    return bytes > 0;
}

void Image::updateSizes(void)
{
    setComponentSize(sizeOfType(getDataType()));
    setSideSize(static_cast<Int32>(getSize(true, false, false)));
    setFrameSize(static_cast<Int32>(getSize(true, false, true)));
}

bool Image::setData(const UInt8 *data)
{
    return setPixels(data, true);
}

void Image::clearData(void)
{
    setPixels(nullptr, false);
}

UInt32 Image::getSize(bool withMipMaps, bool withFrames, bool withSides) const
{
    const Real64 pixels =
        pixelsOfLevels(getWidth(), getHeight(), getDepth(), withMipMaps ? getMipMapCount() : 1);
    const Real64 bytes =
        pixels * getBpp() * (withSides ? getSideCount() : 1) * (withFrames ? getFrameCount() : 1);
    return static_cast<UInt32>(std::clamp(bytes, 0.0, Real64(TypeTraits<Int32>::Max)));
}

bool Image::hasAlphaChannel(void) const
{
    switch (getPixelFormat()) {
    case OSG_A_PF:
    case OSG_LA_PF:
    case OSG_RGBA_PF:
    case OSG_BGRA_PF:
        return true;
    default:
        return false;
    }
}

void Image::executeSync(FieldContainer &other, const BitVector &whichField)
{
    executeSyncImpl(static_cast<Image *>(&other), whichField);
}

void Image::executeSyncImpl(Image *other, const BitVector &whichField)
{
    // The edit of new pixels names the sides neither by number nor by size.
    const bool hasNewPixels = (whichField & PixelFieldMask) != 0;
    Inherited::executeSyncImpl(other, hasNewPixels ? whichField | SideCountFieldMask | SideSizeFieldMask
                                                   : whichField);
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
    if (whichField & LayoutFieldMask) {
        updateSizes();
    }
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
