// Files as they lie on a disk that failed, a copy that broke off, a stick that was pulled: every beginning of a sound
// file and many with bits turned. Each is loaded or refused with the error for pictures; nothing else may happen.
#include "basic/error.h"
#include "panel/pictures/picture_file.h"
#include "sample_pictures.h"

#include <gtest/gtest.h>

#include <QBuffer>

#include <random>

using namespace servopanel;
namespace samples = servopanel::testing;

namespace {

QByteArray saved(const char* format, int side)
{
    QImage image{side, side, QImage::Format_RGB32};
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, qRgb(x * 12, y * 12, (x * y) & 0xFF));
    QByteArray data;
    QBuffer buffer{&data};
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return data;
}

struct Sample {
    std::string name;
    QByteArray data;
};

std::vector<Sample> corpus()
{
    std::vector<Sample> all{{"gif", samples::gif()}, {"png", saved("PNG", 20)}, {"jpeg", saved("JPG", 20)},
        {"bmp", saved("BMP", 9)}, {"wmf", samples::greenHalf()}, {"many.wmf", samples::manyShapes()}};
    for (const int bits : {1, 4, 8, 16, 24, 32})
        all.push_back({"bmp" + std::to_string(bits), samples::bitmap({bits})});
    all.push_back({"runs4", samples::bitmap({4, false, true})});
    all.push_back({"runs8", samples::bitmap({8, false, true})});
    all.push_back({"old", samples::bitmap({8, false, false, true})});
    return all;
}

// Whether it is loaded; what is refused names the file.
bool load(const QByteArray& data)
{
    try {
        const QImage image = panel::decodePicture(data, "Servo\\Picture.gif", 64);
        EXPECT_FALSE(image.isNull());
        EXPECT_LE(image.sizeInBytes(), 160'000'000);
        return true;
    } catch (const basic::Error& error) {
        EXPECT_EQ(error.number, 481);
        EXPECT_NE(error.description.find("Servo\\Picture.gif"), std::string::npos);
        return false;
    }
}

} // namespace

TEST(BrokenPictures, EverySampleIsSoundToBeginWith)
{
    for (const Sample& sample : corpus())
        EXPECT_TRUE(load(sample.data)) << sample.name;
}

TEST(BrokenPictures, APictureThatBreaksOffIsRefusedWhereverItDoes)
{
    for (const Sample& sample : corpus()) {
        // What may follow behind the last pixel: an end mark, filling bytes.
        const qsizetype needed = sample.data.size()
            - (sample.name == "gif"                                    ? 1
                    : sample.name == "runs8" || sample.name == "runs4" ? 2
                                                                       : 0);
        for (qsizetype size = 0; size < needed; ++size)
            EXPECT_FALSE(load(sample.data.left(size))) << sample.name << " " << size;
    }
}

TEST(BrokenPictures, TurnedBitsAreBorne)
{
    std::mt19937 random{20240517};
    for (const Sample& sample : corpus())
        for (int run = 0; run < 400; ++run) {
            QByteArray data = sample.data;
            const int turns = 1 + int(random() % 6);
            for (int i = 0; i < turns; ++i) {
                const qsizetype at = qsizetype(random() % std::size_t(data.size()));
                data[at] = char(data[at] ^ char(1U << (random() % 8)));
            }
            load(data);
        }
}

TEST(BrokenPictures, ExtremeFieldsAreBorne)
{
    for (const Sample& sample : corpus())
        for (qsizetype at = 0; at + 2 <= std::min<qsizetype>(sample.data.size(), 400); ++at)
            for (const char* field : {"0000", "ffff", "ff7f", "0080"}) {
                QByteArray data = sample.data;
                load(data.replace(at, 2, QByteArray::fromHex(field)));
            }
}
