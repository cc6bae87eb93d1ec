// Files as they lie on a disk that failed, a copy that broke off, a stick that was pulled: every beginning of a sound
// file and many with bits turned. Each is loaded or refused with the error for pictures; nothing else may happen.
#include "basic/error.h"
#include "panel/pictures/picture_file.h"
#include "sample_pictures.h"

#include <gtest/gtest.h>

#include <random>

using namespace servopanel;
namespace samples = servopanel::testing;

namespace {

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
    for (const samples::NamedPicture& sample : samples::soundPictures())
        EXPECT_TRUE(load(sample.data)) << sample.name;
}

TEST(BrokenPictures, APictureThatBreaksOffIsRefusedWhereverItDoes)
{
    for (const samples::NamedPicture& sample : samples::soundPictures()) {
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
    for (const samples::NamedPicture& sample : samples::soundPictures())
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
    for (const samples::NamedPicture& sample : samples::soundPictures())
        for (qsizetype at = 0; at + 2 <= std::min<qsizetype>(sample.data.size(), 400); ++at)
            for (const char* field : {"0000", "ffff", "ff7f", "0080"}) {
                QByteArray data = sample.data;
                load(data.replace(at, 2, QByteArray::fromHex(field)));
            }
}
