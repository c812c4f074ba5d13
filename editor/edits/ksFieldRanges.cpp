// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldRanges.h>
#include <editor/edits/ksValueKinds.h>
#include <editor/ksEditorError.h>

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGSFBaseTypes.h>

#include <cmath>
#include <limits>
#include <map>
#include <string>

namespace {

using ksFieldRanges::Range;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr Range Finite{-Infinity, Infinity};
constexpr Range NotNegative{0, Infinity};
constexpr Range Share{0, 1};

/// By the field's class and name. Others take all finite numbers, colours those from 0 on.
const std::map<std::string, Range> &ranges()
{
    static const std::map<std::string, Range> all = {
        {"UberLight.diffuse", NotNegative},
        {"UberLight.glossy", NotNegative},
        {"UberLight.intensity", NotNegative},
        {"UberLight.attenuation", {0, 2}},
        {"UberLight.coneAngle", {0, 360}},
        {"UberLight.penumbraAngle", {0, 180}},
        {"UberLight.referenceDistance", NotNegative},
        {"ColorComponent.color", NotNegative},
        {"ColorComponent.weight", NotNegative},
        {"UBRDFMaterial.baseColor", NotNegative},
        {"UBRDFMaterial.roughness", Share},
        {"UBRDFMaterial.metalness", Share},
        {"UBRDFMaterial.refractionIndex", NotNegative},
        {"Transform3D.rotationDirectionMode", {0, 2}},
        {"ksNodeSettings.opacity", Share},
    };
    return all;
}

QString text(const Range &range)
{
    return range.most < Infinity ? QStringLiteral("numbers from %1 to %2").arg(range.least).arg(range.most)
           : range.least > -Infinity ? QStringLiteral("numbers of at least %1").arg(range.least)
                                     : QStringLiteral("finite numbers");
}

} // namespace

ksFieldRanges::Range ksFieldRanges::of(const osg::FieldContainerPtr &container, const QString &field)
{
    const auto own = ranges().find(container->getTypeName() + ('.' + field.toStdString()));
    if (own != ranges().end())
        return own->second;
    const osg::Field *found = container->getField(field.toStdString().c_str());
    const bool isColour = found != nullptr && (found->getType() == osg::SFColor3f::getClassType() ||
                                               found->getType() == osg::SFColor4f::getClassType());
    return isColour ? NotNegative : Finite;
}

void ksFieldRanges::check(const osg::FieldContainerPtr &container, const QString &field,
                          const std::vector<double> &numbers)
{
    const Range range = of(container, field);
    for (const double number : numbers) {
        if (!std::isfinite(number) || number < range.least || number > range.most)
            throw ksEditorError(QLatin1Char('\'') + field + QStringLiteral("' takes ") + text(range) +
                                QStringLiteral(", not ") + ksValueKinds::shown(number));
    }
}
