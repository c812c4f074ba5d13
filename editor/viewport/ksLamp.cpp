// SPDX-License-Identifier: MIT
#include <editor/viewport/ksLamp.h>

#include <QtMath>

#include <unordered_map>

namespace {

constexpr float HalfTurn = 180;

bool isSeen(osg::NodePtr node)
{
    for (; node != osg::NullFC; node = node->getParent())
        if (node->getTravMask() == 0)
            return false;
    return true;
}

float cosineOfHalf(float angle)
{
    return angle >= 2 * HalfTurn ? -1 : std::cos(qDegreesToRadians(std::max(angle, 0.0F) / 2));
}

ksLamp lampOf(const ksVisibleNode &node)
{
    const osg::UberLight &light = *node.light;
    ksLamp lamp;
    lamp.position = node.matrix.map(QVector3D());
    lamp.direction = node.matrix.mapVector(QVector3D(0, 0, -1)).normalized();
    lamp.diffuse = ksToQt(light.getDiffuse()) * light.getIntensity();
    lamp.glossy = ksToQt(light.getGlossy()) * light.getIntensity();
    lamp.attenuation = int(light.getAttenuation());
    // The one that imported light from afar has.
    lamp.isFromAfar = light.getAttenuation() == osg::UberLight::None && light.getConeAngle() == HalfTurn &&
                      light.getPenumbraAngle() == 0;
    if (!lamp.isFromAfar) {
        lamp.innerCosine = cosineOfHalf(light.getConeAngle());
        lamp.outerCosine = cosineOfHalf(light.getConeAngle() + std::max(light.getPenumbraAngle(), 0.0F));
    }
    return lamp;
}

} // namespace

ksLamps ksLamps::of(const std::vector<ksVisibleNode> &nodes)
{
    ksLamps result;
    std::unordered_map<osg::UInt32, unsigned int> bits;
    for (const ksVisibleNode &node : nodes)
        if (node.light != osg::NullFC && result.lamps.size() < ksLamp::Most &&
            isSeen(node.light->getVisibilityReference())) {
            bits[node.node.getFieldContainerId()] = 1U << result.lamps.size();
            result.lamps.push_back(lampOf(node));
        }

    unsigned int linked = 0;
    std::unordered_map<osg::UInt32, unsigned int> linkedTo;
    for (const ksVisibleNode &node : nodes) {
        if (node.links == osg::NullFC)
            continue;
        unsigned int lights = 0;
        for (const osg::NodePtr &light : node.links->getLights())
            if (const auto found = bits.find(light.getFieldContainerId()); found != bits.end())
                lights |= found->second;
        linked |= lights;
        for (const osg::NodePtr &lit : node.links->getSceneNodes())
            linkedTo[lit.getFieldContainerId()] |= lights;
    }

    const unsigned int free = ((1U << result.lamps.size()) - 1) & ~linked;
    result.shiningOn.reserve(nodes.size());
    for (const ksVisibleNode &node : nodes) {
        unsigned int lights = node.parent >= 0 ? result.shiningOn[std::size_t(node.parent)] : free;
        if (!linkedTo.empty())
            if (const auto found = linkedTo.find(node.node.getFieldContainerId()); found != linkedTo.end())
                lights |= found->second;
        result.shiningOn.push_back(lights);
    }
    return result;
}
