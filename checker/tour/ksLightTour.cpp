// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksLightTour.h>
#include <checker/tour/ksTourExtras.h>
#include <editor/edits/ksLightEdits.h>

#include <ksundo/light/ksAddNodeAsVisibilityReferenceUndoCommand.h>
#include <ksundo/light/ksAddNodeToLightLinkSetUndoCommand.h>

#include <ksLights.h>
#include <ksLog.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using Nodes = std::vector<osg::NodePtr>;
using LinkCommand = ksAddNodeToLightLinkSetUndoCommand;
using ksLightEdits::LightList;
using ksLightEdits::SceneNodeList;

constexpr int AttenuationModes = 3;

/// Sends the log's errors to a call log for as long as it lives.
class ksErrorsTo
{
public:
    explicit ksErrorsTo(const ksCallLog &log)
        : previous(ksLog::setErrorHandler(log.writer("log")))
    {}
    ~ksErrorsTo() { ksLog::setErrorHandler(std::move(previous)); }
    Q_DISABLE_COPY(ksErrorsTo)

private:
    ksLog::Handler previous;
};

/// What a drag of \a property from \a start has come to at \a event, the first being 0.
ksLightValue dragged(const ksLightProperty &property, const ksLightValue &start, int event)
{
    if (property.name == std::string("attenuation"))
        return {static_cast<float>((static_cast<int>(start[0]) + event + 2) % AttenuationModes), 0, 0};
    const float way = static_cast<float>(event + 1) / 64;
    return property.components == 3 ? start + ksLightValue(way, way / 2, way / 4)
                                    : start + ksLightValue(way, 0, 0);
}

Nodes entriesOf(const osg::MFNodePtr &list)
{
    return {list.begin(), list.end()};
}

} // namespace

void ksLightTour::run()
{
    for (const osg::NodePtr &light : targets.lights)
        for (const ksLightProperty &property : ksLightEdits::properties())
            dragValue(property, light);
    linkLights();
    linkNodes();
    unlinkNodes();
    for (const osg::NodePtr &light : targets.lights)
        referToVisibility(light, targets.nodes.back());
    referToVisibility(extras.light(), extras.places().front());
}

void ksLightTour::dragValue(const ksLightProperty &property, const osg::NodePtr &light)
{
    const ksLightValue before = property.read(light);
    const float intensity = ksLights::getLightValue(light);
    drag(DragEvents, [&](int event) {
        return ksMergingAs(ksMergingOfEvent(event), property.make(text(light, property.name), light,
                                                                  dragged(property, before, event), nullptr));
    });
    const ksLightValue after = dragged(property, before, DragEvents - 1);
    const bool keepsIntensity = property.name != std::string("intensity");
    const auto verify = [&](const ksLightValue &value) {
        history.verify(property.read(light).isSame(value), QStringLiteral("the light has the value"));
        if (keepsIntensity)
            history.verify(ksLights::getLightValue(light) == intensity,
                           QStringLiteral("the intensity stays"));
    };
    verify(after);
    history.undo();
    verify(before);
    history.redo();
    verify(after);
}

void ksLightTour::linkLights()
{
    const osg::LightLinkSetPtr links = extras.links();
    const auto verifyLights = [&](const Nodes &lights) {
        history.verify(entriesOf(links->getLights()) == lights, QStringLiteral("the set has these lights"));
    };
    add(new LinkCommand(links, extras.instance(), LightList, false), 1);
    verifyLights({extras.light()});

    // The light that is there already is left out.
    Nodes all = targets.lights;
    all.insert(all.begin(), osg::NodePtr());
    add(new LinkCommand(links, all, LightList, false), 1);
    Nodes lights = {extras.light()};
    std::copy_if(targets.lights.begin(), targets.lights.end(), std::back_inserter(lights),
                 [this](const osg::NodePtr &light) { return light != extras.light(); });
    verifyLights(lights);

    add(new LinkCommand(links, extras.instance(), LightList, true), 1);
    verifyLights(Nodes(lights.begin() + 1, lights.end()));
    history.undo();
    verifyLights(lights);
    history.redo();
}

void ksLightTour::linkNodes()
{
    const osg::LightLinkSetPtr links = extras.links();
    Nodes wanted = extras.places();
    for (const osg::NodePtr &node : targets.nodes)
        if (node != history.root())
            wanted.push_back(node);
    Nodes given = {history.root(), osg::NodePtr()};
    given.insert(given.end(), wanted.begin(), wanted.end());

    ksCallLog log;
    const ksErrorsTo handler(log);
    add(new LinkCommand(links, given, SceneNodeList, false), 1);
    verifyCalls(log, {ksCallLog::line("log", "Cannot add Root to Light Link Set.")});
    history.verify(entriesOf(links->getSceneNodes()) == wanted,
                   QStringLiteral("all but the root are listed"));
    history.undo();
    history.verify(links->getSceneNodes().empty(), QStringLiteral("no node is listed"));
    history.redo();
    verifyCalls(log, {});
}

void ksLightTour::unlinkNodes()
{
    const osg::LightLinkSetPtr links = extras.links();
    const Nodes &places = extras.places();
    const auto unlink = [&](LinkCommand *command, const Nodes &leaving) {
        const Nodes before = entriesOf(links->getSceneNodes());
        Nodes left;
        std::copy_if(before.begin(), before.end(), std::back_inserter(left), [&](const osg::NodePtr &node) {
            return std::find(leaving.begin(), leaving.end(), node) == leaving.end();
        });
        add(command, 1);
        history.verify(entriesOf(links->getSceneNodes()) == left, QStringLiteral("the nodes are gone"));
        history.undo();
        history.verify(entriesOf(links->getSceneNodes()) == before,
                       QStringLiteral("the nodes are back at their places"));
        history.redo();
    };
    unlink(new LinkCommand(links, places[2], SceneNodeList, true), {places[2]});
    unlink(new LinkCommand(links, Nodes{places[1], places[4]}, SceneNodeList, true), {places[1], places[4]});
}

void ksLightTour::referToVisibility(const osg::NodePtr &light, const osg::NodePtr &reference)
{
    const auto core = osg::UberLightPtr::dcast(light->getCore());
    const auto verify = [&](bool refers) {
        const bool isMarked =
            (reference->getExternalFlags() & osg::NodeExternalFlags::VisibilityReference) != 0;
        history.verify(core->getVisibilityReference() == (refers ? reference : osg::NodePtr()) &&
                           isMarked == refers,
                       refers ? QStringLiteral("the light has the reference")
                              : QStringLiteral("the light has no reference"));
    };
    for (const bool remove : {false, true}) {
        add(new ksAddNodeAsVisibilityReferenceUndoCommand(core, reference, remove), 1);
        verify(!remove);
        history.undo();
        verify(remove);
        history.redo();
        verify(!remove);
    }
}
