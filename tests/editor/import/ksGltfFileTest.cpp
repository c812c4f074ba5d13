// SPDX-License-Identifier: MIT
#include <editor/import/ksGltfFile.h>
#include <tests/editor/ksEditorFixture.h>

#include <QBuffer>
#include <QByteArray>

#include <cstdint>

namespace {

class ksGltfFileTest : public testing::Test
{
protected:
    ksGltfFileTest()
    {
        QBuffer buffer(&png);
        image.fill(Qt::red);
        image.save(&buffer, "PNG");
    }

    /// The image of a text file that has \a members.
    QImage imageOf(const std::string &members) const
    {
        return ksGltfFile(folder.write("text.gltf", '{' + members + '}')).image(0);
    }

    /// A binary file with \a document, and \a content of which it says that it is \a size bytes.
    QString binary(const std::string &document, const std::string &content, std::uint32_t size) const
    {
        const auto number = [](std::uint32_t value) {
            return std::string(reinterpret_cast<const char *>(&value), sizeof(value));
        };
        return folder.write("binary.glb", "glTF" + number(2) + number(0) +
                                              number(std::uint32_t(document.size())) + "JSON" + document +
                                              number(size) + std::string("BIN\0", 4) + content);
    }

    std::string view(int offset = 0) const
    {
        return R"("images": [{"bufferView": 0}], "bufferViews": [{"buffer": 0, "byteOffset": )" +
               std::to_string(offset) + R"(, "byteLength": )" + std::to_string(png.size()) + "}]";
    }

    ksTestFolder folder;
    QImage image{3, 2, QImage::Format_RGB32};
    QByteArray png;
};

} // namespace

TEST_F(ksGltfFileTest, ReadsImagesWhereverTheyAre)
{
    const std::string uri = "data:image/png;base64," + png.toBase64().toStdString();
    EXPECT_EQ(imageOf(R"("images": [{"uri": ")" + uri + "\"}]"), image);
    EXPECT_EQ(imageOf(view() + R"(, "buffers": [{"uri": ")" + uri + "\"}]"), image);
    folder.write("some buffer.bin", png.toStdString());
    EXPECT_EQ(imageOf(view() + R"(, "buffers": [{"uri": "some%20buffer.bin"}])"), image);
    const std::string document = '{' + view() + R"(, "buffers": [{}]})";
    EXPECT_EQ(ksGltfFile(binary(document, png.toStdString(), std::uint32_t(png.size()))).image(0), image);
    // Of a chunk that says it is longer there is what there is.
    EXPECT_EQ(ksGltfFile(binary(document, png.toStdString(), 0xFFFFFFFF)).image(0), image);
}

TEST_F(ksGltfFileTest, ReadsNoImagesThatAreNotThere)
{
    const std::string beside = R"("images": [{"uri": "beside.png"}])";
    EXPECT_TRUE(imageOf(beside).isNull());
    EXPECT_TRUE(imageOf(view() + R"(, "buffers": [{"uri": "missing.bin"}])").isNull());
    folder.write("buffer.bin", png.toStdString());
    for (const int offset : {1, 2000000000})
        EXPECT_TRUE(imageOf(view(offset) + R"(, "buffers": [{"uri": "buffer.bin"}])").isNull()) << offset;
    EXPECT_TRUE(ksGltfFile(folder.path("missing.gltf")).image(0).isNull());
    EXPECT_TRUE(ksGltfFile().image(-1).isNull());
}

TEST_F(ksGltfFileTest, SaysWhereTheDocumentIsDamaged)
{
    EXPECT_EQ(ksGltfFile(folder.write("text.gltf", "{}")).damageOfDocument(), QString());
    EXPECT_EQ(ksGltfFile(folder.write("text.gltf", "{\n1}")).damageOfDocument(),
              QStringLiteral("line 2, column 2: unterminated object"));
    EXPECT_EQ(ksGltfFile(binary("{1}", "", 0)).damageOfDocument(),
              QStringLiteral("byte 22: unterminated object"));
    EXPECT_EQ(ksGltfFile(folder.write("other.glb", "{1}")).damageOfDocument(), QString());
}
