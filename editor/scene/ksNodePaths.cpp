// SPDX-License-Identifier: MIT
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksNodePaths.h>

#include <algorithm>
#include <charconv>
#include <string_view>

namespace {

bool canBePartOfPath(const std::string &name)
{
    return !name.empty() && name.front() != '#' && name.find('/') == std::string::npos;
}

/// The first child of \a node called \a name; NullFC when there is none.
osg::NodePtr childCalled(const osg::NodePtr &node, std::string_view name)
{
    for (osg::UInt32 i = 0; i < node->getNChildren(); ++i)
        if (ksContainers::ownNameOf(node->getChild(i)) == name)
            return node->getChild(i);
    return osg::NullFC;
}

/// The child of \a node that \a part of a path means.
osg::NodePtr childAt(const osg::NodePtr &node, std::string_view part)
{
    if (part.empty() || part.front() != '#')
        return part.empty() ? osg::NodePtr() : childCalled(node, part);
    osg::UInt32 index = 0;
    const char *const end = part.data() + part.size();
    const std::from_chars_result read = std::from_chars(part.data() + 1, end, index);
    const bool isIndex = read.ec == std::errc() && read.ptr == end && index < node->getNChildren();
    return isIndex ? node->getChild(index) : osg::NodePtr();
}

std::string partOf(const osg::NodePtr &parent, const osg::NodePtr &node)
{
    const std::string name = ksContainers::ownNameOf(node);
    if (canBePartOfPath(name) && childCalled(parent, name) == node)
        return name;
    return '#' + std::to_string(parent->findChild(node));
}

} // namespace

std::string ksNodePaths::of(const osg::NodePtr &node)
{
    std::string path;
    osg::NodePtr at = node;
    for (osg::NodePtr parent = at->getParent(); parent != osg::NullFC; at = parent, parent = at->getParent())
        path.insert(0, partOf(parent, at) + (path.empty() ? "" : "/"));
    return path;
}

osg::NodePtr ksNodePaths::find(const osg::NodePtr &root, const std::string &path)
{
    osg::NodePtr found = root;
    for (std::size_t start = 0; !path.empty() && found != osg::NullFC && start <= path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        found = childAt(found, std::string_view(path).substr(start, end - start));
        start = end + 1;
    }
    return found;
}
