// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGVector.h>

#include <QList>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

/// What commands call back, in order, each call as one line of text.
class ksCallLog
{
public:
    using Lines = std::vector<std::string>;

    /// A function that writes its arguments to the log, in a line that starts with \a name. It may outlive
    /// the log.
    auto writer(const char *name) const
    {
        return
            [known = lines, name](const auto &...arguments) { known->push_back(line(name, arguments...)); };
    }

    /// The lines since the last call of this.
    Lines take();

    /// The line that a call with \a arguments gives: \a name and the values, separated by spaces. A node is
    /// its id, a list is in brackets.
    template <class... Arguments>
    static std::string line(const char *name, const Arguments &...arguments)
    {
        std::ostringstream text;
        text.precision(9);
        text << name;
        ((text << ' ', put(text, arguments)), ...);
        return text.str();
    }

private:
    template <class Argument>
    static void put(std::ostream &text, const Argument &argument)
    {
        text << argument;
    }
    static void put(std::ostream &text, const osg::NodePtr &node);
    static void put(std::ostream &text, const osg::Vec3f &value);
    static void put(std::ostream &text, const QList<int> &indexes);

    std::shared_ptr<Lines> lines = std::make_shared<Lines>();
};
