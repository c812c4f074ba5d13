// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGSysFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_IMAGE_FIELDS(SF, MF)                                \
    MF(MFFieldContainerPtr, parents, Parents)                   \
    SF(SFInt32, dimension, Dimension, 0)                        \
    SF(SFInt32, width, Width, 0)                                \
    SF(SFInt32, height, Height, 1)                              \
    SF(SFInt32, depth, Depth, 1)                                \
    SF(SFInt32, bpp, Bpp, 1)                                    \
    SF(SFInt32, mipMapCount, MipMapCount, 1)                    \
    SF(SFInt32, frameCount, FrameCount, 1)                      \
    SF(SFTime, frameDelay, FrameDelay, 0)                       \
    SF(SFUInt32, pixelFormat, PixelFormat, 0)                   \
    MF(MFUInt8, pixel, Pixel)                                   \
    SF(InternalField<SFInt32>, frameSize, FrameSize, 0)         \
    SF(SFString, name, Name, "")                                \
    SF(SFInt32, dataType, DataType, 0x1401)                     \
    SF(InternalField<SFInt32>, componentSize, ComponentSize, 1) \
    SF(SFInt32, sideCount, SideCount, 1)                        \
    SF(InternalField<SFInt32>, sideSize, SideSize, 0)           \
    SF(SFBool, forceCompressedData, ForceCompressedData, false) \
    SF(SFBool, forceAlphaChannel, ForceAlphaChannel, false)     \
    SF(SFBool, forceColorChannel, ForceColorChannel, false)     \
    SF(SFBool, forceAlphaBinary, ForceAlphaBinary, false)       \
    SF(SFReal32, resX, ResX, 72)                                \
    SF(SFReal32, resY, ResY, 72)                                \
    SF(SFUInt16, resUnit, ResUnit, 2)

OSG_CONTAINER_POINTER(Image, AttachmentContainerPtr)
OSG_CONTAINER_BASE(Image, AttachmentContainer, OSG_IMAGE_FIELDS)

/// Pixels in memory: frames, in each of them sides, in each of them levels from the full size down, in each
/// of them slices, rows and pixels.
class Image : public ImageBase
{
    OSG_CONTAINER_MEMBERS(Image)

public:
    /// The components of a pixel.
    enum PixelFormat
    {
        OSG_INVALID_PF = 0,
        OSG_A_PF = 0x1906,
        OSG_RGB_PF = 0x1907,
        OSG_RGBA_PF = 0x1908,
        OSG_L_PF = 0x1909,
        OSG_LA_PF = 0x190A,
        OSG_BGR_PF = 0x80E0,
        OSG_BGRA_PF = 0x80E1
    };

    /// The type of a component.
    enum Type
    {
        OSG_UINT8_IMAGEDATA = 0x1401,
        OSG_UINT16_IMAGEDATA = 0x1403,
        OSG_UINT32_IMAGEDATA = 0x1405,
        OSG_FLOAT32_IMAGEDATA = 0x1406,
        OSG_FLOAT16_IMAGEDATA = 0x140B
    };

    /// What the sizes of a component, a side and a frame follow from.
    static constexpr BitVector LayoutFieldMask =
        WidthFieldMask | HeightFieldMask | DepthFieldMask | BppFieldMask | MipMapCountFieldMask |
        FrameCountFieldMask | PixelFormatFieldMask | DataTypeFieldMask | SideCountFieldMask;

    /// Sets layout and pixels, and ends an edit of each. Sizes and counts below 1 become 1. An unknown format
    /// or type is set, and gives no pixels.
    ///
    /// @param delay     seconds between frames
    /// @param data      all pixels, copied; null leaves the pixels if their number is right, else zeros
    /// @param type      a Type
    /// @param allocate  false: no pixels are kept
    /// @return whether the image has pixels now; also false, and no change, for an image of more bytes than
    /// an
    ///         Int32 counts
    bool set(UInt32 pixelFormat, Int32 width, Int32 height = 1, Int32 depth = 1, Int32 mipMapCount = 1,
             Int32 frameCount = 1, Time frameDelay = 0, const UInt8 *data = nullptr,
             Int32 type = OSG_UINT8_IMAGEDATA, bool allocate = true, Int32 sideCount = 1);

    /// Sets the pixels alone, as set() does, or takes them away.
    bool setData(const UInt8 *data);
    void clearData(void);

    /// Whether there are pixels, and whether they have an alpha component.
    bool isValid(void) const { return !_mfPixel.empty(); }
    bool hasAlphaChannel(void) const;

    /// Bytes of the pixels that the layout asks for: of all levels, frames and sides, or of one each.
    UInt32 getSize(bool withMipMaps = true, bool withFrames = true, bool withSides = true) const;

    /// Null for an image without pixels.
    UInt8 *getData(void);

    /// Notes that field @p fieldId of @p parent holds the image; the edit is up to the caller. A parent may
    /// hold it in several fields.
    void addParent(const FieldContainerPtr &parent, UInt32 fieldId);
    void subParent(const FieldContainerPtr &parent, UInt32 fieldId);

    /// A new layout makes new sizes. Calls the parents' change handlers, with the field that holds the image
    /// and origin Child.
    void changed(BitVector whichField, UInt32 origin) override;

protected:
    Image(void) = default;
    Image(const Image &source);
    ~Image(void) override = default;

    void executeSync(FieldContainer &other, const BitVector &whichField) override;
    void executeSyncImpl(Image *other, const BitVector &whichField);

private:
    bool setPixels(const UInt8 *data, bool allocate);
    void updateSizes(void);
};

OSG_END_NAMESPACE
