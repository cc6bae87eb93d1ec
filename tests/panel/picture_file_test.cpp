#include "panel/pictures/picture_file.h"

#include "basic/error.h"
#include "sample_pictures.h"
#include "support/error_number.h"
#include "support/full_disk.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace servopanel;
using panel::loadPicture;
namespace samples = servopanel::testing;

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

// Five bits of a colour cannot say it exactly.
bool isLike(QRgb colour, QRgb wanted)
{
    constexpr int most = 8;
    return std::abs(qRed(colour) - qRed(wanted)) < most && std::abs(qGreen(colour) - qGreen(wanted)) < most
        && std::abs(qBlue(colour) - qBlue(wanted)) < most;
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
    const QImage loaded = loadPicture(write("red.bmp", samples::gif()), "red.bmp");
    EXPECT_EQ(loaded.size(), (QSize{1, 1}));
    EXPECT_EQ(loaded.pixelColor(0, 0), QColor(255, 0, 0));
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

TEST_F(PictureFileTest, LoadsBitmapsOfEveryKind)
{
    using Kind = samples::BitmapKind;
    const std::vector<Kind> kinds{{1}, {4}, {8}, {16}, {24}, {32}, {24, true}, {8, true}, {4, false, true},
        {8, false, true}, {1, false, false, true}, {4, false, false, true}, {8, false, false, true},
        {24, false, false, true}, {16, false, false, false, true}};
    for (const Kind& kind : kinds) {
        const QImage loaded = loadPicture(write("a.bmp", samples::bitmap(kind)), "a.bmp");
        const std::string what = "bits " + std::to_string(kind.bits) + (kind.isTopDown ? ", top down" : "")
            + (kind.isRunLengthCoded ? ", runs" : "") + (kind.hasOldHeader ? ", old header" : "")
            + (kind.hasMasks ? ", masks" : "");
        ASSERT_EQ(loaded.size(), (QSize{4, 3})) << what;
        const bool isMono = kind.bits == 1;
        EXPECT_TRUE(isLike(loaded.pixel(0, 0), isMono ? 0x000000 : 0xFF0000)) << what;
        EXPECT_TRUE(isLike(loaded.pixel(1, 0), isMono ? 0xFFFFFF : 0x00FF00)) << what;
        EXPECT_TRUE(isLike(loaded.pixel(2, 0), isMono ? 0x000000 : 0x0000FF)) << what;
        EXPECT_TRUE(isLike(loaded.pixel(3, 0), 0xFFFFFF)) << what;
        EXPECT_TRUE(isLike(loaded.pixel(0, 1), 0x000000)) << what;
        EXPECT_TRUE(isLike(loaded.pixel(3, 2), 0x000000)) << what;
    }
}

TEST_F(PictureFileTest, APictureWithTooManyPixelsIsError481AndSaysSo)
{
    QByteArray huge = samples::bitmap({1});
    huge.replace(18, 8, samples::longWord(8000) + samples::longWord(8000));
    huge += QByteArray(8000 / 8 * 8000, char(0)); // all of it is there
    try {
        loadPicture(write("huge.bmp", huge), "huge.bmp");
        FAIL();
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.number, 481);
        EXPECT_NE(error.description.find("8000 x 8000 pixels are too many"), std::string::npos)
            << error.description;
    }
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

TEST_F(PictureFileTest, AFullDiskIsError75AndKeepsThePictureThatWasThere)
{
    const std::filesystem::path file = save("copy.bmp", "BMP");
    QImage other{20, 10, QImage::Format_RGB32};
    other.fill(Qt::blue);
    for (const rlim_t bytesLeft : {rlim_t{0}, rlim_t{60}}) {
        EXPECT_EQ(servopanel::testing::errorNumber([&] {
            const servopanel::testing::FullDisk full{bytesLeft};
            return panel::saveBitmap(other, file, "copy.bmp"), 0;
        }),
            75);
        EXPECT_EQ(loadPicture(file, "copy.bmp").pixelColor(5, 5), QColor(200, 30, 40));
    }
    EXPECT_FALSE([&] {
        const servopanel::testing::FullDisk full;
        return panel::saveImage(other, folder_.filePath("other.png").toStdString(), "PNG");
    }());
    EXPECT_FALSE(QFile::exists(folder_.filePath("other.png")));
}
