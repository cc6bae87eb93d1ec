#pragma once

#include <QImage>

#include <filesystem>
#include <string>

namespace servopanel::panel {

// Loads a picture by what is in the file, whatever its name ends in: bitmap, GIF, PNG, JPEG, or metafile. name is how
// the file is called in errors. Error 53 when there is no file, 481 when it is no picture, a broken one, or one with
// more pixels than a panel can keep (32 million).
//
// metafileSide: pixels of a metafile's longer side, 0 for its own size; others come as they are.
QImage loadPicture(const std::filesystem::path& file, const std::string& name, int metafileSide = 0);

// The same for the bytes of a file that was read; raises error 481 only.
QImage decodePicture(const QByteArray& data, const std::string& name, int metafileSide = 0);

// Saves an image as a bitmap; error 76 when the folder is missing, 75 when it cannot be written.
void saveBitmap(const QImage& image, const std::filesystem::path& file, const std::string& name);

// format: "BMP" or "PNG". false when it cannot be written to its end; a file that was there before is then as it was.
bool saveImage(const QImage& image, const std::filesystem::path& file, const char* format);

} // namespace servopanel::panel
