#include "recording/project/picture_size.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using servopanel::recording::pictureSize;

std::string bytes(std::initializer_list<int> values)
{
    std::string text;
    for (const int value : values)
        text += static_cast<char>(static_cast<unsigned char>(value));
    return text;
}

void expectSize(const std::string& file, int width, int height)
{
    const auto size = pictureSize(file);
    ASSERT_TRUE(size.has_value());
    EXPECT_EQ(size->width, width);
    EXPECT_EQ(size->height, height);
}

const std::string gif = "GIF89a" + bytes({0x90, 0x01, 0x8C, 0x00});
const std::string bitmap =
    "BM" + std::string(12, '\0') + bytes({40, 0, 0, 0, 0x00, 0x05, 0, 0, 0x00, 0x04, 0, 0});
const std::string topDownBitmap =
    "BM" + std::string(12, '\0') + bytes({40, 0, 0, 0, 0x10, 0, 0, 0, 0xF0, 0xFF, 0xFF, 0xFF});
const std::string png =
    "\x89PNG\r\n\x1A\n" + bytes({0, 0, 0, 13}) + "IHDR" + bytes({0, 0, 1, 0, 0, 0, 0, 200});
const std::string jpeg =
    bytes({0xFF, 0xD8, 0xFF, 0xE0, 0, 4, 1, 2, 0xFF, 0xC0, 0, 17, 8, 0, 100, 0, 200, 3, 0});
const std::string metafile =
    bytes({0xD7, 0xCD, 0xC6, 0x9A, 0, 0, 0, 0, 0, 0, 0x40, 0x0B, 0xA0, 0x05, 0xA0, 0x05, 0, 0, 0, 0, 0, 0});

TEST(PictureSize, ComesFromTheHeaderOfEveryFormat)
{
    expectSize(gif, 400, 140);
    expectSize(bitmap, 1280, 1024);
    expectSize(topDownBitmap, 16, 16);
    expectSize(png, 256, 200);
    expectSize(jpeg, 200, 100);
    expectSize(metafile, 192, 96);
}

TEST(PictureSize, IsMissingWhenAHeaderIsCutOff)
{
    for (const std::string& whole : {gif, bitmap, png, metafile})
        EXPECT_FALSE(pictureSize(whole.substr(0, whole.size() - 1)).has_value());
    EXPECT_FALSE(pictureSize("GIF89a").has_value());
    EXPECT_FALSE(pictureSize(jpeg.substr(0, 12)).has_value());
}

TEST(PictureSize, IsMissingForOtherFiles)
{
    EXPECT_FALSE(pictureSize("").has_value());
    EXPECT_FALSE(pictureSize("[Project]\r\nServoWithMenu=TRUE\r\n").has_value());
    EXPECT_FALSE(pictureSize("GIF89a" + bytes({0, 0, 0, 0})).has_value());
}

} // namespace
