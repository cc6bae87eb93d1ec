#include "panel/pictures/picture_cache.h"

#include "sample_pictures.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace servopanel;
using panel::PictureCache;

namespace {

class PictureCacheTest : public ::testing::Test {
protected:
    std::filesystem::path write(const char* name, const QByteArray& content)
    {
        const std::filesystem::path path = folder_.filePath(QString::fromUtf8(name)).toStdString();
        QFile file{QString::fromStdString(path.string())};
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path;
    }
    std::filesystem::path square(const char* name, int side)
    {
        QImage image{side, side, QImage::Format_RGB32};
        image.fill(Qt::red);
        const QString path = folder_.filePath(QString::fromUtf8(name));
        EXPECT_TRUE(image.save(path, "BMP"));
        return path.toStdString();
    }
    QTemporaryDir folder_;
};

} // namespace

TEST_F(PictureCacheTest, LoadsAFileOnce)
{
    PictureCache cache;
    // 20 MB on the disk.
    const std::filesystem::path file = square("large.bmp", 2600);
    ASSERT_GT(std::filesystem::file_size(file), 20'000'000U);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(cache.load(file, "large.bmp").size(), (QSize{2600, 2600}));
    EXPECT_EQ(cache.loads(), 1);
}

TEST_F(PictureCacheTest, SeesAFileThatChanged)
{
    PictureCache cache;
    const std::filesystem::path file = square("a.bmp", 10);
    EXPECT_EQ(cache.load(file, "a.bmp").width(), 10);
    square("a.bmp", 20);
    EXPECT_EQ(cache.load(file, "a.bmp").width(), 20);
    // The same size, later.
    std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) + std::chrono::seconds{1});
    cache.load(file, "a.bmp");
    EXPECT_EQ(cache.loads(), 3);
}

TEST_F(PictureCacheTest, StaysWithinItsBoundAndKeepsWhatWasUsedLast)
{
    PictureCache cache{100'000};
    const std::filesystem::path one = square("one.bmp", 100); // 40,000 bytes each
    const std::filesystem::path two = square("two.bmp", 100);
    const std::filesystem::path three = square("three.bmp", 100);
    cache.load(one, "one");
    cache.load(two, "two");
    cache.load(one, "one");
    cache.load(three, "three");
    EXPECT_LE(cache.bytes(), 100'000);
    cache.load(one, "one");
    EXPECT_EQ(cache.loads(), 3);
    cache.load(two, "two");
    EXPECT_EQ(cache.loads(), 4);
}

TEST_F(PictureCacheTest, TheNewestStaysHoweverLargeItIs)
{
    PictureCache cache{1000};
    const std::filesystem::path file = square("a.bmp", 100);
    cache.load(file, "a");
    cache.load(file, "a");
    EXPECT_EQ(cache.loads(), 1);
}

TEST_F(PictureCacheTest, RemembersThatAFileIsBrokenUntilItChanges)
{
    PictureCache cache;
    const std::filesystem::path file = write("a.gif", "no picture");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(servopanel::testing::errorNumber([&] { return cache.load(file, "a.gif"); }), 481);
    EXPECT_EQ(cache.loads(), 1);
    write("a.gif", servopanel::testing::gif());
    EXPECT_EQ(cache.load(file, "a.gif").width(), 1);
}

TEST_F(PictureCacheTest, AMissingFileIsError53UntilItIsThere)
{
    PictureCache cache;
    const std::filesystem::path file = folder_.filePath("a.gif").toStdString();
    EXPECT_EQ(servopanel::testing::errorNumber([&] { return cache.load(file, "a.gif"); }), 53);
    write("a.gif", servopanel::testing::gif());
    EXPECT_EQ(cache.load(file, "a.gif").width(), 1);
}

TEST_F(PictureCacheTest, AMetafileIsKeptPerSize)
{
    PictureCache cache;
    const std::filesystem::path file = write("OK.wmf", servopanel::testing::greenHalf());
    EXPECT_EQ(cache.load(file, "OK.wmf").width(), 100);
    EXPECT_EQ(cache.load(file, "OK.wmf", 300).width(), 300);
    EXPECT_EQ(cache.load(file, "OK.wmf").width(), 100);
    EXPECT_EQ(cache.loads(), 2);
}
