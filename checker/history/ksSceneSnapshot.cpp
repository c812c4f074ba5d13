// SPDX-License-Identifier: MIT
#include <checker/history/ksSceneSnapshot.h>
#include <editor/scene/ksFieldReader.h>
#include <editor/scene/ksFieldReferences.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldContainerType.h>

#include <algorithm>

namespace {

/// Calls \a visit(id, field) with every field of \a container.
template <class Visit>
void visitFields(const osg::FieldContainerPtr &container, const Visit &visit)
{
    const osg::UInt32 count = container->getType().getNumFieldDescs();
    for (osg::UInt32 id = 1; id <= count; ++id)
        if (const osg::Field *field = container->getField(id))
            visit(id, *field);
}

/// For every id whether that container can be reached from \a root.
std::vector<bool> reachableFrom(const osg::NodePtr &root)
{
    std::vector<bool> reached(osg::FieldContainerFactory::the()->getFieldContainerStore()->size(), false);
    std::vector<osg::FieldContainerPtr> open;
    const auto reach = [&reached, &open](const osg::FieldContainerPtr &container) {
        const osg::UInt32 id = container.getFieldContainerId();
        if (!reached[id]) {
            reached[id] = true;
            open.push_back(container);
        }
    };
    if (root != osg::NullFC)
        reach(root);
    while (!open.empty()) {
        const osg::FieldContainerPtr container = open.back();
        open.pop_back();
        visitFields(container, [&reach](osg::UInt32, const osg::Field &field) {
            ksFieldReferences::visit(field, reach);
        });
    }
    return reached;
}

} // namespace

ksSceneSnapshot::ksSceneSnapshot(const osg::NodePtr &root, const ksSceneSnapshot &basis)
{
    const std::vector<bool> inScene = reachableFrom(root);
    const osg::FieldContainerFactory::FieldContainerStore &store =
        *osg::FieldContainerFactory::the()->getFieldContainerStore();
    for (osg::UInt32 id = 0; id < store.size(); ++id)
        if (store[id] != osg::NullFC)
            entries.push_back({id, inScene[id], read(store[id], basis.find(id))});
}

std::shared_ptr<const ksSceneSnapshot::Container> ksSceneSnapshot::read(const osg::FieldContainerPtr &source,
                                                                        const Entry *known)
{
    if (known != nullptr && holds(source, *known->container))
        return known->container;

    const osg::FieldContainerType &type = source->getType();
    auto container = std::make_shared<Container>();
    container->type = type.getCName();
    container->fields.resize(type.getNumFieldDescs());
    visitFields(source, [&container, &type](osg::UInt32 id, const osg::Field &field) {
        container->fields[id - 1] = {type.getFieldDescription(id)->getCName(), ksFieldReader::content(field),
                                     ksFieldReader::text(field)};
    });
    return container;
}

bool ksSceneSnapshot::holds(const osg::FieldContainerPtr &source, const Container &known)
{
    bool same = true;
    visitFields(source, [&same, &known](osg::UInt32 id, const osg::Field &field) {
        same = same && ksFieldReader::holds(field, known.fields[id - 1].content);
    });
    return same;
}

std::vector<ksDifference> ksSceneSnapshot::differences(const ksSceneSnapshot &actual, Scope scope) const
{
    std::vector<ksDifference> found;
    auto mine = entries.begin();
    auto other = actual.entries.begin();
    while (mine != entries.end() || other != actual.entries.end()) {
        const bool hasMine =
            mine != entries.end() && (other == actual.entries.end() || mine->id <= other->id);
        const bool hasOther =
            other != actual.entries.end() && (mine == entries.end() || other->id <= mine->id);
        const Entry *expected = hasMine ? &*mine : nullptr;
        const Entry *present = hasOther ? &*other : nullptr;
        compare(expected != nullptr && isWithin(scope, *expected, present) ? expected : nullptr,
                present != nullptr && isWithin(scope, *present, expected) ? present : nullptr, found);
        mine += hasMine ? 1 : 0;
        other += hasOther ? 1 : 0;
    }
    return found;
}

bool ksSceneSnapshot::isWithin(Scope scope, const Entry &entry, const Entry *counterpart)
{
    const bool isKept = scope == Scope::Kept && counterpart != nullptr && !counterpart->inScene;
    return isKept || entry.inScene || scope == Scope::Everything;
}

void ksSceneSnapshot::compare(const Entry *expected, const Entry *actual,
                              std::vector<ksDifference> &differences)
{
    if (expected == nullptr && actual == nullptr)
        return;
    if (expected == nullptr || actual == nullptr) {
        const Entry &only = expected != nullptr ? *expected : *actual;
        differences.push_back({only.id, only.container->type, 0, "",
                               expected != nullptr ? "present" : "absent",
                               actual != nullptr ? "present" : "absent"});
        return;
    }
    if (expected->container == actual->container)
        return;
    const std::vector<Field> &fields = expected->container->fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const Field &other = actual->container->fields[i];
        if (fields[i].content != other.content)
            differences.push_back({expected->id, expected->container->type, static_cast<osg::UInt32>(i + 1),
                                   fields[i].name, fields[i].text, other.text});
    }
}

int ksSceneSnapshot::count(Scope scope) const
{
    return static_cast<int>(std::count_if(entries.begin(), entries.end(), [scope](const Entry &entry) {
        return scope == Scope::Everything || entry.inScene;
    }));
}

const ksSceneSnapshot::Entry *ksSceneSnapshot::find(osg::UInt32 id) const
{
    const auto found =
        std::lower_bound(entries.begin(), entries.end(), id,
                         [](const Entry &entry, osg::UInt32 wanted) { return entry.id < wanted; });
    return found != entries.end() && found->id == id ? &*found : nullptr;
}

void ksSceneSnapshot::adopt(const ksSceneSnapshot &other, osg::UInt32 container, osg::UInt32 field)
{
    const Entry *mine = find(container);
    const Entry *source = other.find(container);
    if (mine == nullptr || source == nullptr)
        return;
    auto changed = std::make_shared<Container>(*mine->container);
    changed->fields[field - 1] = source->container->fields[field - 1];
    entries[static_cast<std::size_t>(mine - entries.data())].container = std::move(changed);
}

const ksSceneSnapshot::Field *ksSceneSnapshot::find(osg::UInt32 container, osg::UInt32 field) const
{
    const Entry *entry = find(container);
    return entry != nullptr && field - 1 < entry->container->fields.size()
               ? &entry->container->fields[field - 1]
               : nullptr;
}

std::string ksSceneSnapshot::text(osg::UInt32 container, osg::UInt32 field) const
{
    const Field *found = find(container, field);
    return found != nullptr ? found->text : std::string();
}

std::string ksSceneSnapshot::content(osg::UInt32 container, osg::UInt32 field) const
{
    const Field *found = find(container, field);
    return found != nullptr ? found->content : std::string();
}
