// SPDX-License-Identifier: MIT
#include "OSGLightLinkSet.h"

#include <OpenSG/OSGNode.h>

#include <algorithm>
#include <array>
#include <functional>
#include <unordered_map>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(LightLinkSet, NodeCore, "", OSG_LIGHT_LINK_SET_FIELDS)

namespace {

/// Where a value given for @p position goes in a list of @p count values.
UInt32 placeOf(Int32 position, UInt32 count)
{
    return position < 0 ? count : std::min(static_cast<UInt32>(position), count);
}

/// The slots of a list that are not taken yet, counted in a tree: entry i (from 1) has the number of those in
/// the lowbit(i) slots up to it.
class FreeSlots
{
public:
    explicit FreeSlots(UInt32 count)
        : _counts(count + 1)
    {
        for (UInt32 i = 1; i <= count; ++i) {
            _counts[i] = i & -i;
        }
        while (2 * _topStep <= count) {
            _topStep *= 2;
        }
    }

    /// Takes the free slot that has @p rank free ones before it.
    UInt32 take(UInt32 rank)
    {
        UInt32 slot = 0;
        for (UInt32 step = _topStep; step > 0; step /= 2) {
            const UInt32 next = slot + step;
            if (next >= _counts.size()) {
                continue;
            }
            if (_counts[next] > rank) {
                --_counts[next];
            } else {
                rank -= _counts[next];
                slot = next;
            }
        }
        return slot;
    }

private:
    std::vector<UInt32> _counts;
    UInt32 _topStep = 1;
};

/// The places in the finished list, of @p count values, of those that were inserted at @p places one after
/// the other.
std::vector<UInt32> finalPlaces(std::vector<UInt32> places, UInt32 count)
{
    // While places ascend, nothing is inserted before an earlier value.
    const auto descent = std::adjacent_find(places.begin(), places.end(), std::greater_equal<>());
    if (descent != places.end()) {
        FreeSlots slots(count);
        std::for_each(places.rbegin(), places.rend(), [&](UInt32 &place) { place = slots.take(place); });
    }
    return places;
}

/// Releases a reference on each of its nodes when it goes: after the edit, also when a handler throws.
template <class Nodes>
struct Released
{
    Nodes nodes;

    ~Released()
    {
        for (const NodePtr &node : nodes) {
            subRefCP(node);
        }
    }
};

} // namespace

LightLinkSet::LightLinkSet(const LightLinkSet &source)
    : Inherited(source)
{
    _mfLights.clear();
    _mfSceneNodes.clear();
}

LightLinkSet::~LightLinkSet(void)
{
    for (const MFNodePtr *list : {&_mfLights, &_mfSceneNodes}) {
        for (const NodePtr &node : *list) {
            subRefCP(node);
        }
    }
}

bool LightLinkSet::contains(const MFNodePtr &list, const NodePtr &node)
{
    return node != NullFC && list.find(node) != list.end();
}

void LightLinkSet::insert(MFNodePtr &list, BitVector mask, const NodePtr &node, Int32 position)
{
    if (node == NullFC) {
        return;
    }
    const CPEditor edit(LightLinkSetPtr(*this), mask);
    addRefCP(node);
    list.insert(list.begin() + placeOf(position, list.size()), node);
}

void LightLinkSet::insert(MFNodePtr &list, BitVector mask, const PlacedNodes &nodes)
{
    Nodes coming;
    std::vector<UInt32> places;
    coming.reserve(nodes.size());
    places.reserve(nodes.size());
    for (const auto &[node, position] : nodes) {
        if (node != NullFC) {
            places.push_back(placeOf(position, list.size() + static_cast<UInt32>(coming.size())));
            coming.push_back(node);
        }
    }
    if (coming.empty()) {
        return;
    }
    const CPEditor edit(LightLinkSetPtr(*this), mask);
    Nodes values(list.size() + coming.size());
    places = finalPlaces(std::move(places), static_cast<UInt32>(values.size()));
    for (std::size_t i = 0; i < coming.size(); ++i) {
        addRefCP(coming[i]);
        values[places[i]] = coming[i];
    }
    auto present = list.begin();
    for (NodePtr &value : values) {
        if (value == NullFC) {
            value = *present++;
        }
    }
    list.getValues().swap(values);
}

void LightLinkSet::remove(MFNodePtr &list, BitVector mask, const NodePtr &node)
{
    const auto found = list.find(node);
    if (node == NullFC || found == list.end()) {
        return;
    }
    // By value: the caller's handle may lie in the list.
    const Released<std::array<NodePtr, 1>> leaving{{node}};
    const CPEditor edit(LightLinkSetPtr(*this), mask);
    list.erase(found);
}

void LightLinkSet::remove(MFNodePtr &list, BitVector mask, const Nodes &nodes)
{
    struct Entries
    {
        UInt32 wanted = 0;
        UInt32 found = 0;
    };
    std::unordered_map<const Node *, Entries> entriesOf;
    for (const NodePtr &node : nodes) {
        if (node != NullFC) {
            ++entriesOf[node.getCPtr()].wanted;
        }
    }
    Nodes staying;
    staying.reserve(list.size());
    for (const NodePtr &node : list) {
        const auto entries = entriesOf.find(node.getCPtr());
        if (entries != entriesOf.end() && entries->second.found < entries->second.wanted) {
            ++entries->second.found;
        } else {
            staying.push_back(node);
        }
    }
    Released<Nodes> leaving;
    leaving.nodes.reserve(list.size() - staying.size());
    for (const NodePtr &node : nodes) {
        if (node != NullFC && entriesOf[node.getCPtr()].found > 0) {
            --entriesOf[node.getCPtr()].found;
            leaving.nodes.push_back(node);
        }
    }
    if (leaving.nodes.empty()) {
        return;
    }
    const CPEditor edit(LightLinkSetPtr(*this), mask);
    list.getValues().swap(staying);
}

OSG_END_NAMESPACE
