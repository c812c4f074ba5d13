// SPDX-License-Identifier: MIT
#include "ksWindowFixture.h"
#include <tests/editor/ksModelCollection.h>

namespace {

class ksWindowCollectionTest : public ksWindowFixture
{};

} // namespace

/// Each is shown, or the user is told why not.
TEST_F(ksWindowCollectionTest, OpensEveryModelOrSaysWhyNot)
{
    QStringList files;
    for (const std::string &name : ksModelCollection::formatFolders())
        files += ksModelCollection::filesOf(name);
    files = ksModelCollection::sampleOf(files);
    if (files.isEmpty())
        GTEST_SKIP() << ksModelCollection::Missing;
    int shown = 0;
    for (const QString &file : files) {
        SCOPED_TRACE(file.toStdString());
        user.complaints.clear();
        const bool isOpen = window->open(file);
        EXPECT_EQ(user.complaints.size(), isOpen ? 0 : 1);
        if (isOpen && document.root()->getNChildren() > 0)
            document.selection().set(document.root()->getChild(0));
        QCoreApplication::processEvents();
        shown += isOpen ? 1 : 0;
    }
    EXPECT_GT(shown, files.size() / 2);
}
