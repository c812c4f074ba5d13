// SPDX-License-Identifier: MIT
#pragma once

#include <editor/session/ksHeadlessSession.h>

/// A session of ks-editor: runs a script on the model and writes a line for each of its steps.
class ksEditorSession : public ksHeadlessSession
{
public:
    /// Both must outlive the session.
    ksEditorSession(std::ostream &record, std::ostream &errorStream);

protected:
    int edit(osg::NodeRefPtr root, const ksEditorOptions &options, ksRecord &record,
             ksVerdict &verdict) override;
};
