#include "panel/pictures/picture_file.h"

#include "basic/error.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace servopanel;
using panel::loadPicture;

namespace {

class PictureFileTest : public ::testing::Test {
protected:
    std::filesystem::path write(const char* name, const QByteArray& content)
    {
        const QString path = folder_.filePath(QString::fromUtf8(name));
        QFile file{path};
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path.toStdString();
    }
    std::filesystem::path save(const char* name, const char* format)
    {
        const QString path = folder_.filePath(QString::fromUtf8(name));
        EXPECT_TRUE(image().save(path, format));
        return path.toStdString();
    }
    static QImage image()
    {
        QImage made{20, 10, QImage::Format_RGB32};
        made.fill(QColor{200, 30, 40});
        return made;
    }
    QTemporaryDir folder_;
};

// One red pixel.
const QByteArray redGif =
    QByteArray::fromHex("47494638396101000100800000ff0000ffffff2c00000000010001000002024401003b");

QByteArray word(int value)
{
    return QByteArray{}.append(char(value & 0xFF)).append(char((value >> 8) & 0xFF));
}
QByteArray longWord(long value) { return word(int(value & 0xFFFF)) + word(int((value >> 16) & 0xFFFF)); }

QByteArray record(int function, const QList<int>& parameters)
{
    QByteArray made = longWord(3 + parameters.size()) + word(function);
    for (const int parameter : parameters)
        made += word(parameter);
    return made;
}

// A placeable metafile of 100 x 50 units: a green rectangle over its left half, as a polygon. mapMode 1: one unit is one
// pixel; 8: the file scales itself.
QByteArray metafile(int mapMode = 8)
{
    QByteArray head = QByteArray::fromHex("d7cdc69a") + word(0) + word(0) + word(0) + word(100) + word(50)
        + word(96) + longWord(0);
    int sum = 0;
    for (int i = 0; i < head.size(); i += 2)
        sum ^= (quint8(head[i]) | (quint8(head[i + 1]) << 8));
    head += word(sum);

    QByteArray records;
    records += record(0x0103, {mapMode});
    records += record(0x020B, {0, 0}); // window origin
    records += record(0x020C, {50, 100}); // window size: height, width
    records += record(0x02FC, {0, 0xC000, 0x0000, 0}); // brush: solid, colour 0x00C000
    records += record(0x012D, {0});
    records += record(0x02FA, {5, 0, 0, 0, 0}); // pen: none
    records += record(0x012D, {1});
    records += record(0x0324, {4, 0, 0, 50, 0, 50, 50, 0, 50}); // polygon
    records += record(0, {});
    const long words = 9 + records.size() / 2;
    return head + word(1) + word(9) + word(0x0300) + longWord(words) + word(2) + longWord(13) + word(0)
        + records;
}

} // namespace

TEST_F(PictureFileTest, TellsTheFormatByTheContent)
{
    for (const char* format : {"BMP", "PNG", "JPG"}) {
        const QImage loaded = loadPicture(save("picture.gif", format), "picture.gif");
        EXPECT_EQ(loaded.size(), (QSize{20, 10})) << format;
        EXPECT_NEAR(loaded.pixelColor(5, 5).red(), 200, 4) << format;
    }
}

TEST_F(PictureFileTest, LoadsAGif)
{
    const QImage loaded = loadPicture(write("red.bmp", redGif), "red.bmp");
    EXPECT_EQ(loaded.size(), (QSize{1, 1}));
    EXPECT_EQ(loaded.pixelColor(0, 0), QColor(255, 0, 0));
}

TEST_F(PictureFileTest, DrawsAMetafileWithTransparentBackground)
{
    for (const int mapMode : {1, 8}) {
        const QImage drawn = loadPicture(write("OK.wmf", metafile(mapMode)), "OK.wmf");
        ASSERT_FALSE(drawn.isNull());
        EXPECT_NEAR(drawn.width(), 2 * drawn.height(), 2);
        const QColor left = drawn.pixelColor(drawn.width() / 4, drawn.height() / 2);
        EXPECT_EQ(left.alpha(), 255) << mapMode;
        EXPECT_EQ(left.green(), 0xC0) << mapMode;
        EXPECT_EQ(left.red(), 0) << mapMode;
        EXPECT_EQ(drawn.pixelColor(drawn.width() * 3 / 4, drawn.height() / 2).alpha(), 0) << mapMode;
    }
}

TEST_F(PictureFileTest, AMissingFileIsError53)
{
    EXPECT_EQ(servopanel::testing::errorNumber(
                  [&] { return loadPicture(folder_.filePath("none.gif").toStdString(), "none.gif"); }),
        53);
}

TEST_F(PictureFileTest, WhatIsNoPictureIsError481AndNamesTheFile)
{
    const auto text = write("text.gif", "this is no picture");
    try {
        loadPicture(text, "Servo\\text.gif");
        FAIL();
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.number, 481);
        EXPECT_NE(error.description.find("Servo\\text.gif"), std::string::npos);
    }
    EXPECT_EQ(
        servopanel::testing::errorNumber([&] { return loadPicture(write("empty.gif", {}), "empty.gif"); }),
        481);
}

TEST_F(PictureFileTest, BrokenPicturesAreError481)
{
    QFile whole{QString::fromStdString(save("whole.png", "PNG").string())};
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    EXPECT_EQ(servopanel::testing::errorNumber(
                  [&] { return loadPicture(write("cut.png", whole.readAll().left(40)), "cut.png"); }),
        481);
    EXPECT_EQ(servopanel::testing::errorNumber(
                  [&] { return loadPicture(write("cut.wmf", metafile().left(30)), "cut.wmf"); }),
        481);
    QByteArray wrong = metafile();
    for (int i = 22; i < wrong.size(); i += 3)
        wrong[i] = char(0xFF);
    EXPECT_EQ(
        servopanel::testing::errorNumber([&] { return loadPicture(write("wrong.wmf", wrong), "wrong.wmf"); }),
        481);
}

TEST_F(PictureFileTest, SavesABitmapWhateverTheNameSays)
{
    const std::filesystem::path file = folder_.filePath("copy.gif").toStdString();
    panel::saveBitmap(image(), file, "copy.gif");
    QFile saved{QString::fromStdString(file.string())};
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_TRUE(saved.readAll().startsWith("BM"));
    EXPECT_EQ(loadPicture(file, "copy.gif").size(), (QSize{20, 10}));
}

TEST_F(PictureFileTest, SavingIntoAMissingFolderIsError76)
{
    const std::filesystem::path file = folder_.filePath("none/copy.gif").toStdString();
    EXPECT_EQ(
        servopanel::testing::errorNumber([&] { return panel::saveBitmap(image(), file, "copy.gif"), 0; }),
        76);
}
