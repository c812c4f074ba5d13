// SPDX-License-Identifier: MIT
#include <editor/scene/ksFieldReferences.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGSFAttachmentMap.h>

#include <charconv>
#include <string>
#include <string_view>
#include <unordered_map>

namespace {

bool isOfHandles(const osg::FieldType &type)
{
    const std::string_view content = type.getContentType().getCName();
    return (content.size() > 3 && content.substr(content.size() - 3) == "Ptr") ||
           type == osg::SFAttachmentMap::getClassType();
}

} // namespace

bool ksFieldReferences::arePossibleIn(const osg::Field &field)
{
    thread_local std::unordered_map<const osg::FieldType *, bool> known;
    const osg::FieldType &type = field.getType();
    const auto found = known.find(&type);
    return found != known.end() ? found->second : known.emplace(&type, isOfHandles(type)).first->second;
}

std::vector<osg::UInt32> ksFieldReferences::ids(const osg::Field &field)
{
    // The text is the same for handles of every class.
    std::string text;
    field.getValueByStr(text);
    std::vector<osg::UInt32> result;
    const char *const end = text.data() + text.size();
    for (const char *at = text.data(); at < end; ++at) {
        osg::UInt32 id = 0;
        const std::from_chars_result read = std::from_chars(at, end, id);
        if (read.ec != std::errc())
            continue;
        result.push_back(id);
        at = read.ptr;
    }
    return result;
}

void ksFieldReferences::visit(const osg::Field &field,
                              const std::function<void(const osg::FieldContainerPtr &)> &visit)
{
    if (const auto *attachments = dynamic_cast<const osg::SFAttachmentMap *>(&field)) {
        for (const auto &[key, attachment] : attachments->getValue())
            visit(attachment);
    } else if (arePossibleIn(field)) {
        for (const osg::UInt32 id : ids(field)) {
            const osg::FieldContainerPtr container = osg::FieldContainerFactory::the()->getContainer(id);
            if (container != osg::NullFC)
                visit(container);
        }
    }
}
