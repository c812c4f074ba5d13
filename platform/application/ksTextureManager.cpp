// SPDX-License-Identifier: MIT
#include "ksTextureManager.h"

#include <boost/functional/hash.hpp>

#include <algorithm>
#include <array>
#include <string_view>

namespace {

std::array<osg::Int32, 8> layoutOf(const osg::Image &image)
{
    return {image.getWidth(),      image.getHeight(),
            image.getDepth(),      static_cast<osg::Int32>(image.getPixelFormat()),
            image.getDataType(),   image.getMipMapCount(),
            image.getFrameCount(), image.getSideCount()};
}

std::string_view pixelsOf(const osg::Image &image)
{
    const osg::MFUInt8::StorageType &pixels = image.getPixel().getValues();
    return {reinterpret_cast<const char *>(pixels.data()), pixels.size()};
}

std::size_t hashOf(const osg::Image &image)
{
    const auto layout = layoutOf(image);
    std::size_t hash = boost::hash_range(layout.begin(), layout.end());
    boost::hash_combine(hash, std::hash<std::string>()(image.getName()));
    boost::hash_combine(hash, std::hash<std::string_view>()(pixelsOf(image)));
    return hash;
}

bool areEqual(const osg::Image &a, const osg::Image &b)
{
    return layoutOf(a) == layoutOf(b) && a.getName() == b.getName() && pixelsOf(a) == pixelsOf(b);
}

/// Null if it has gone.
osg::ImagePtr imageOf(osg::UInt32 id)
{
    return osg::ImagePtr::dcast(osg::FieldContainerFactory::the()->getContainer(id));
}

} // namespace

ksTextureManager *ksTextureManager::the()
{
    static ksTextureManager manager;
    return &manager;
}

osg::ImagePtr ksTextureManager::getImage(const osg::ImagePtr &image, bool shared)
{
    if (!image)
        return osg::NullFC;
    const std::size_t hash = hashOf(*image);
    if (shared) {
        const auto [first, last] = imageIds.equal_range(hash);
        for (auto entry = first; entry != last; ++entry) {
            const osg::ImagePtr known = imageOf(entry->second);
            if (known && areEqual(*known, *image))
                return known;
        }
    }
    remember(image.getFieldContainerId(), hash);
    return image;
}

void ksTextureManager::clear()
{
    entries.clear();
    imageIds.clear();
}

void ksTextureManager::remember(osg::UInt32 imageId, std::size_t hash)
{
    const auto known = entries.find(imageId);
    if (known != entries.end()) {
        if (known->second->first != hash) {
            imageIds.erase(known->second);
            known->second = imageIds.emplace(hash, imageId);
        }
        return;
    }
    if (entries.size() >= crowd)
        forgetGoneImages();
    entries.emplace(imageId, imageIds.emplace(hash, imageId));
}

void ksTextureManager::forgetGoneImages()
{
    for (auto entry = imageIds.begin(); entry != imageIds.end();) {
        if (imageOf(entry->second)) {
            ++entry;
        } else {
            entries.erase(entry->second);
            entry = imageIds.erase(entry);
        }
    }
    crowd = std::max<std::size_t>(crowd, 2 * entries.size());
}
