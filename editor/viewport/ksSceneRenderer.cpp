// SPDX-License-Identifier: MIT
#include <editor/scene/ksImageLayout.h>
#include <editor/viewport/ksGl.h>
#include <editor/viewport/ksSceneRenderer.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

constexpr const char *MeshVertexShader = R"(#version 120
attribute vec3 position;
attribute vec3 normal;
attribute vec2 coordinate;
uniform mat4 toWorld;
uniform mat3 normalToWorld;
uniform mat4 viewProjection;
uniform mat3 mapping;
uniform float projectionSize;
varying vec3 worldPosition;
varying vec3 worldNormal;
varying vec2 place;

void main()
{
    vec4 world = toWorld * vec4(position, 1.0);
    worldPosition = world.xyz;
    worldNormal = normalToWorld * normal;
    vec2 given = projectionSize > 0.0 ? position.xy / projectionSize : coordinate;
    place = (mapping * vec3(given, 1.0)).xy;
    gl_Position = viewProjection * world;
}
)";

constexpr const char *MeshFragmentShader = R"(#version 120
const int MostLamps = 8;
const float Pi = 3.14159265;
varying vec3 worldPosition;
varying vec3 worldNormal;
varying vec2 place;
uniform vec3 eye;
uniform bool hasNormals;
uniform bool isLit;
uniform int lampCount;
uniform vec4 lampPositions[MostLamps];
uniform vec3 lampDirections[MostLamps];
uniform vec3 lampDiffuse[MostLamps];
uniform vec3 lampGlossy[MostLamps];
uniform vec3 lampShapes[MostLamps];
uniform vec3 color;
uniform int layerCount;
uniform vec3 layerColors[3];
uniform sampler2D layer0;
uniform sampler2D layer1;
uniform sampler2D layer2;
uniform vec3 glow;
uniform bool hasGlowLayer;
uniform vec3 glowLayerColor;
uniform sampler2D glowLayer;
uniform float roughness;
uniform float metalness;
uniform vec3 gloss;
uniform float opacity;
uniform bool hasEnvironment;
uniform bool hasEnvironmentLayer;
uniform vec3 environmentColor;
uniform sampler2D environmentLayer;

vec3 lightOf(sampler2D image, vec2 at)
{
    return pow(texture2D(image, at).rgb, vec3(2.2));
}

vec3 around(vec3 direction)
{
    if (!hasEnvironment) {
        vec3 ground = vec3(0.4, 0.36, 0.32);
        vec3 sky = vec3(1.3, 1.4, 1.6);
        return mix(ground, sky, smoothstep(-0.6, 0.8, direction.y));
    }
    if (!hasEnvironmentLayer)
        return environmentColor * 3.0;
    vec2 at = vec2(atan(direction.x, direction.z) / (2.0 * Pi) + 0.5, asin(clamp(direction.y, -1.0, 1.0)) / Pi + 0.5);
    return environmentColor * lightOf(environmentLayer, at) * 3.0;
}

vec3 shown(vec3 light)
{
    vec3 x = light * 0.33;
    vec3 film = clamp(x * (2.51 * x + 0.03) / (x * (2.43 * x + 0.59) + 0.14), 0.0, 1.0);
    return pow(film, vec3(1.0 / 2.2));
}

void main()
{
    vec3 base = color;
    if (layerCount > 0)
        base += layerColors[0] * lightOf(layer0, place);
    if (layerCount > 1)
        base += layerColors[1] * lightOf(layer1, place);
    if (layerCount > 2)
        base += layerColors[2] * lightOf(layer2, place);
    vec3 shine = glow;
    if (hasGlowLayer)
        shine += glowLayerColor * lightOf(glowLayer, place);
    if (!isLit || !hasNormals) {
        gl_FragColor = vec4(pow(clamp(base + shine, 0.0, 1.0), vec3(1.0 / 2.2)), opacity);
        return;
    }

    vec3 toEye = normalize(eye - worldPosition);
    vec3 up = normalize(worldNormal);
    if (dot(up, toEye) < 0.0)
        up = -up;
    float facing = max(dot(up, toEye), 0.001);
    vec3 matt = base * (1.0 - metalness);
    vec3 mirrored = mix(gloss, base, metalness);
    float alpha = max(roughness * roughness, 0.01);
    float alpha2 = alpha * alpha;
    vec3 light = shine * 3.0;

    for (int i = 0; i < MostLamps; ++i) {
        if (i >= lampCount)
            break;
        vec3 way = lampPositions[i].w > 0.5 ? lampPositions[i].xyz - worldPosition : -lampDirections[i];
        float far = length(way);
        vec3 toLamp = way / max(far, 0.0001);
        float lit = max(dot(up, toLamp), 0.0);
        if (lit <= 0.0)
            continue;
        float strength = lit;
        if (lampPositions[i].w > 0.5) {
            float within = dot(-toLamp, lampDirections[i]);
            vec3 shape = lampShapes[i];
            float rim = shape.x > shape.y ? smoothstep(shape.y, shape.x, within) : step(shape.y, within);
            float divisor = shape.z > 1.5 ? far * far : (shape.z > 0.5 ? far : 1.0);
            strength *= rim / max(divisor, 0.01);
        }
        vec3 between = normalize(toLamp + toEye);
        float tilt = max(dot(up, between), 0.0);
        float spread = tilt * tilt * (alpha2 - 1.0) + 1.0;
        float peak = alpha2 / (Pi * spread * spread);
        float k = alpha / 2.0;
        float hidden = 1.0 / ((facing * (1.0 - k) + k) * (lit * (1.0 - k) + k) * 4.0);
        vec3 fresnel = mirrored + (1.0 - mirrored) * pow(1.0 - max(dot(toEye, between), 0.0), 5.0);
        light += strength * (matt / Pi * lampDiffuse[i] + min(peak * hidden, 20.0) * fresnel * lampGlossy[i]);
    }

    float above = up.y * 0.5 + 0.5;
    vec3 ambient = mix(vec3(0.28, 0.25, 0.23), vec3(0.62, 0.66, 0.74), above);
    light += matt * ambient;
    vec3 rim = mirrored + (max(vec3(1.0 - roughness), mirrored) - mirrored) * pow(1.0 - facing, 5.0);
    vec3 reflected = mix(around(reflect(-toEye, up)), ambient, hasEnvironment ? roughness * 0.7 : roughness);
    light += rim * reflected;
    gl_FragColor = vec4(shown(light), opacity);
}
)";

enum Attribute
{
    PositionAttribute,
    NormalAttribute,
    CoordinateAttribute
};

constexpr int VertexSize = 8 * sizeof(float);

std::unique_ptr<ksGpuMesh> meshOf(const osg::ksMeshPtr &mesh)
{
    return std::make_unique<ksGpuMesh>(*mesh);
}

/// A white one for null and for images that cannot be drawn.
std::unique_ptr<QOpenGLTexture> textureOf(const osg::ImagePtr &image)
{
    QImage shown = image != osg::NullFC ? ksImageLayout::pictureOf(*image) : QImage();
    GLint most = 0;
    ksGl().glGetIntegerv(GL_MAX_TEXTURE_SIZE, &most);
    if (shown.isNull() || std::max(shown.width(), shown.height()) > most) {
        shown = QImage(1, 1, QImage::Format_RGB32);
        shown.fill(Qt::white);
    }
    auto texture = std::make_unique<QOpenGLTexture>(shown);
    texture->setMinMagFilters(QOpenGLTexture::LinearMipMapLinear, QOpenGLTexture::Linear);
    texture->setWrapMode(QOpenGLTexture::Repeat);
    return texture;
}

/// What shines where the scene has no light.
ksLamp headlight(const ksOrbitCamera &camera)
{
    constexpr float Brightness = 5;
    ksLamp lamp;
    lamp.isFromAfar = true;
    lamp.direction = camera.toScene().mapVector(QVector3D(0.4F, -0.5F, -1)).normalized();
    lamp.diffuse = lamp.glossy = QVector3D(Brightness, Brightness, Brightness);
    return lamp;
}

} // namespace

ksSceneRenderer::ksSceneRenderer()
    : meshes(meshOf, ksGpuMesh::Fields)
    , images(textureOf, osg::Image::PixelFieldMask | osg::Image::LayoutFieldMask)
{}

bool ksSceneRenderer::prepare()
{
    if (!ksLink(program, MeshVertexShader, MeshFragmentShader, {"position", "normal", "coordinate"}))
        return false;
    perNode = {program.uniformLocation("opacity"), program.uniformLocation("hasNormals"),
               program.uniformLocation("toWorld"), program.uniformLocation("normalToWorld")};
    return true;
}

void ksSceneRenderer::draw(const std::vector<ksVisibleNode> &nodes, ksMeshBounds &bounds,
                           const ksOrbitCamera &camera)
{
    ksLamps known = ksLamps::of(nodes);
    if (known.lamps.empty()) {
        known.lamps.push_back(headlight(camera));
        std::fill(known.shiningOn.begin(), known.shiningOn.end(), 1U);
    }
    lamps = std::move(known.lamps);
    surfaces.clear();
    surface = nullptr;

    struct Drawn
    {
        std::size_t place;
        bool isSeenThrough;
        float distance;
    };
    std::vector<Drawn> order;
    const QVector3D eye = camera.eye();
    const QRectF picture(QPointF(), camera.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const ksVisibleNode &node = nodes[i];
        if (node.mesh == osg::NullFC || !(node.opacity > 0))
            continue;
        const ksBounds &box = bounds.of(node.mesh);
        const float distance = (node.matrix.map(box.centre()) - eye).length();
        // What has no points is nowhere.
        if (std::isfinite(distance) && camera.frameOf(box, node.matrix).intersects(picture))
            order.push_back({i, node.opacity * surfaceOf(node).opacity < 1, distance});
    }
    std::stable_sort(order.begin(), order.end(), [&nodes](const Drawn &one, const Drawn &other) {
        if (one.isSeenThrough != other.isSeenThrough)
            return other.isSeenThrough;
        const int oneOrder = nodes[one.place].renderOrder;
        const int otherOrder = nodes[other.place].renderOrder;
        if (one.isSeenThrough && oneOrder != otherOrder)
            return oneOrder < otherOrder;
        // What is hidden needs not be painted.
        return one.isSeenThrough ? one.distance > other.distance : one.distance < other.distance;
    });

    QOpenGLFunctions &gl = ksGl();
    gl.glEnable(GL_DEPTH_TEST);
    gl.glDisable(GL_CULL_FACE);
    gl.glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    program.bind();
    program.setUniformValue("viewProjection", camera.viewProjection());
    program.setUniformValue("eye", eye);
    setLamps(0);
    gl.glDepthFunc(GL_LEQUAL);
    constexpr std::array<Attribute, 3> Attributes = {PositionAttribute, NormalAttribute, CoordinateAttribute};
    for (const Attribute attribute : Attributes)
        program.enableAttributeArray(attribute);
    for (const Drawn &drawn : order) {
        if (drawn.isSeenThrough) {
            // Only its nearest faces are to be seen: the depths first.
            gl.glDisable(GL_BLEND);
            gl.glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
            drawNode(nodes[drawn.place], known.shiningOn[drawn.place]);
            gl.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
            gl.glEnable(GL_BLEND);
        }
        drawNode(nodes[drawn.place], known.shiningOn[drawn.place]);
    }
    for (const Attribute attribute : Attributes)
        program.disableAttributeArray(attribute);
    gl.glDisable(GL_BLEND);
    program.release();
}

void ksSceneRenderer::drawNode(const ksVisibleNode &node, unsigned int lampsOfNode)
{
    ksGpuMesh &mesh = *meshes.of(node.mesh);
    if (mesh.count == 0)
        return;
    if (shining != lampsOfNode)
        setLamps(lampsOfNode);
    if (const ksSurface &wanted = surfaceOf(node); surface != &wanted)
        setSurface(wanted);
    program.setUniformValue(perNode.opacity, surface->opacity * node.opacity);
    program.setUniformValue(perNode.hasNormals, mesh.hasNormals);
    program.setUniformValue(perNode.toWorld, node.matrix);
    program.setUniformValue(perNode.normalToWorld, node.matrix.normalMatrix());

    QOpenGLFunctions &gl = ksGl();
    mesh.vertices.bind();
    mesh.indices.bind();
    program.setAttributeBuffer(PositionAttribute, GL_FLOAT, 0, 3, VertexSize);
    program.setAttributeBuffer(NormalAttribute, GL_FLOAT, 3 * sizeof(float), 3, VertexSize);
    program.setAttributeBuffer(CoordinateAttribute, GL_FLOAT, 6 * sizeof(float), 2, VertexSize);
    constexpr std::array<GLenum, 3> Modes = {GL_POINTS, GL_LINES, GL_TRIANGLES};
    gl.glDrawElements(Modes[std::size_t(mesh.cornersPerFace - 1)], mesh.count, GL_UNSIGNED_INT, nullptr);
    mesh.vertices.release();
    mesh.indices.release();
}

const ksSurface &ksSceneRenderer::surfaceOf(const ksVisibleNode &node)
{
    const osg::MaterialPtr material = node.mesh->getMaterial();
    const auto [entry, isNew] = surfaces.try_emplace(material.getFieldContainerId());
    if (isNew)
        entry->second = ksSurface::of(material);
    return entry->second;
}

void ksSceneRenderer::setLamps(unsigned int which)
{
    std::array<QVector4D, ksLamp::Most> positions;
    std::array<QVector3D, ksLamp::Most> directions;
    std::array<QVector3D, ksLamp::Most> diffuse;
    std::array<QVector3D, ksLamp::Most> glossy;
    std::array<QVector3D, ksLamp::Most> shapes;
    std::size_t count = 0;
    for (std::size_t i = 0; i < lamps.size(); ++i) {
        if ((which & (1U << i)) == 0)
            continue;
        const ksLamp &lamp = lamps[i];
        positions[count] = QVector4D(lamp.position, lamp.isFromAfar ? 0 : 1);
        directions[count] = lamp.direction;
        diffuse[count] = lamp.diffuse;
        glossy[count] = lamp.glossy;
        shapes[count] = QVector3D(lamp.innerCosine, lamp.outerCosine, float(lamp.attenuation));
        ++count;
    }
    program.setUniformValue("lampCount", int(count));
    program.setUniformValueArray("lampPositions", positions.data(), ksLamp::Most);
    program.setUniformValueArray("lampDirections", directions.data(), ksLamp::Most);
    program.setUniformValueArray("lampDiffuse", diffuse.data(), ksLamp::Most);
    program.setUniformValueArray("lampGlossy", glossy.data(), ksLamp::Most);
    program.setUniformValueArray("lampShapes", shapes.data(), ksLamp::Most);
    shining = which;
}

void ksSceneRenderer::setSurface(const ksSurface &shown)
{
    surface = &shown;
    std::array<QVector3D, ksSurface::MostLayers> colors;
    for (std::size_t i = 0; i < colors.size(); ++i) {
        const bool isUsed = i < shown.layers.size();
        colors[i] = isUsed ? shown.layers[i].color : QVector3D();
        constexpr std::array<const char *, ksSurface::MostLayers> Samplers = {"layer0", "layer1", "layer2"};
        bindImage(int(i), Samplers[i], isUsed ? shown.layers[i].image : osg::ImagePtr());
    }
    program.setUniformValue("color", shown.color);
    program.setUniformValue("layerCount", int(shown.layers.size()));
    program.setUniformValueArray("layerColors", colors.data(), ksSurface::MostLayers);
    program.setUniformValue("glow", shown.glow);
    program.setUniformValue("hasGlowLayer", shown.glowLayer.image != osg::NullFC);
    program.setUniformValue("glowLayerColor", shown.glowLayer.color);
    bindImage(3, "glowLayer", shown.glowLayer.image);
    program.setUniformValue("roughness", std::clamp(shown.roughness, 0.0F, 1.0F));
    program.setUniformValue("metalness", shown.metalness);
    program.setUniformValue("gloss", shown.gloss);
    program.setUniformValue("isLit", shown.isLit);
    program.setUniformValue("mapping", shown.mapping);
    program.setUniformValue("projectionSize", shown.projectionSize);
    program.setUniformValue("hasEnvironment", shown.hasEnvironment);
    program.setUniformValue("hasEnvironmentLayer", shown.environment.image != osg::NullFC);
    program.setUniformValue("environmentColor", shown.environment.color);
    bindImage(4, "environmentLayer", shown.environment.image);
}

void ksSceneRenderer::bindImage(int unit, const char *sampler, const osg::ImagePtr &image)
{
    images.of(image)->bind(GLuint(unit), QOpenGLTexture::ResetTextureUnit);
    program.setUniformValue(sampler, unit);
}

void ksSceneRenderer::follow(const ksSceneChanges &changes)
{
    meshes.follow(changes);
    images.follow(changes);
}

void ksSceneRenderer::clear()
{
    meshes.clear();
    images.clear();
}
