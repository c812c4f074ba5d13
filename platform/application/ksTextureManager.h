// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGImage.h>

#include <cstddef>
#include <map>
#include <unordered_map>

/// Knows the images that the application uses as textures, so that equal ones can be shared.
///
/// Images are equal if they have the same name, the same layout (size, pixel format, data type, levels,
/// frames, sides) and the same pixels. The manager holds no reference on them: an image that nobody else
/// holds goes, and is no longer known. One that was edited after it came here is known by its new content
/// only once it comes here again, and no longer by the old.
///
/// A request looks at the pixels of the image given, and at those of another one only if both have the same
/// hash.
class ksTextureManager
{
public:
    /// The application's texture manager.
    static ksTextureManager *the();

    /// The image to use for \a image. With \a shared that is the one known for longest of those equal to it,
    /// if there is one. Otherwise, and always without \a shared, it is \a image itself, which is known from
    /// then on. Null for null.
    osg::ImagePtr getImage(const osg::ImagePtr &image, bool shared);

    /// Forgets all images.
    void clear();

private:
    using ImageIds = std::multimap<std::size_t, osg::UInt32>;

    void remember(osg::UInt32 imageId, std::size_t hash);
    void forgetGoneImages();

    /// Ids of images by the hash of what they held when they came here, and the entry of each.
    ImageIds imageIds;
    std::unordered_map<osg::UInt32, ImageIds::iterator> entries;

    /// With as many entries it is time to look for images that have gone.
    std::size_t crowd = 64;
};
