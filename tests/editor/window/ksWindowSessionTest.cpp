// SPDX-License-Identifier: MIT
#include <tests/editor/ksEditorFixture.h>

#include <QImage>
#include <QProcess>

namespace {

/// What the program says, and its exit code.
std::pair<int, std::string> run(const QStringList &arguments)
{
    const QTemporaryDir runtime;
    auto environment = QProcessEnvironment::systemEnvironment();
    // What Qt would complain about.
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime.path());
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(KS_EDITOR), arguments);
    process.waitForFinished(-1);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardError().toStdString()};
}

} // namespace

TEST(ksWindowSession, TakesAPicture)
{
    const ksTestFolder folder;
    const auto [code, errors] = run({ksRoomFile(), QStringLiteral("--select"), QStringLiteral("Table"),
                                     QStringLiteral("--screenshot"), folder.path("room.png")});
    EXPECT_EQ(code, 0);
    EXPECT_EQ(errors, "");
    const QImage picture(folder.path("room.png"));
    EXPECT_EQ(picture.size(), QSize(1280, 800));
    EXPECT_EQ(run({QStringLiteral("--screenshot"), folder.path("empty.png")}).first, 0);
    EXPECT_NE(QImage(folder.path("empty.png")), picture);
}

TEST(ksWindowSession, SaysWhyThereIsNoPicture)
{
    const ksTestFolder folder;
    const QString model = folder.path("missing.gltf");
    using Result = std::pair<int, std::string>;
    EXPECT_EQ(run({model, QStringLiteral("--screenshot"), folder.path("a.png")}),
              Result(1, "ks-editor: " + model.toStdString() + ": no such file\n"));
    EXPECT_EQ(run({ksRoomFile(), QStringLiteral("--select"), QStringLiteral("Tabel"),
                   QStringLiteral("--screenshot"), folder.path("a.png")}),
              Result(1, "ks-editor: " + ksRoomFile().toStdString() + ": there is no node 'Tabel'\n"));
    const QString picture = folder.path("missing/a.png");
    EXPECT_EQ(
        run({QStringLiteral("--screenshot"), picture}),
        Result(5, "ks-editor: " + picture.toStdString() +
                      ": cannot be written: Cannot open device for writing: No such file or directory\n"));
    const QString odd = folder.path("a.picture");
    EXPECT_EQ(
        run({QStringLiteral("--screenshot"), odd}),
        Result(5, "ks-editor: " + odd.toStdString() + ": cannot be written: Unsupported image format\n"));
}

TEST(ksWindowSession, TakesNoPictureWithoutOpenGl)
{
    const ksTestFolder folder;
    const QString picture = folder.path("a.png");
    qputenv("QT_XCB_GL_INTEGRATION", "none");
    const auto [code, errors] = run({QStringLiteral("--screenshot"), picture});
    qunsetenv("QT_XCB_GL_INTEGRATION");
    EXPECT_EQ(code, 6);
    EXPECT_THAT(errors, testing::EndsWith("ks-editor: " + picture.toStdString() +
                                          ": OpenGL 2.1, which draws the scene, is not available\n"));
    EXPECT_FALSE(QFile::exists(picture));
}
