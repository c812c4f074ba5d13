// SPDX-License-Identifier: MIT
#pragma once

#include <editor/session/ksEditorSession.h>

class ksDocument;
class ksMainWindow;

/// A session of ks-editor: shows the window, unless it is to go without one.
class ksWindowSession : public ksEditorSession
{
public:
    using ksEditorSession::ksEditorSession;

protected:
    ksEditorOptions::Window window() const override { return ksEditorOptions::Window::Offered; }

    /// Returns WindowError when there is no screen to show the window on. Of a picture: ModelError when the
    /// model cannot be read or has no node to select, WindowError when the scene cannot be drawn, OutputError
    /// when the picture cannot be written. Otherwise the window tells the user.
    int showWindow(const ksEditorOptions &options, char **argv) override;

private:
    int takePicture(ksDocument &document, ksMainWindow &window, const ksEditorOptions &options) const;
};
