#pragma once

#include <QImage>

#include <filesystem>
#include <string>

namespace servopanel::panel {

// Loads a picture by what is in the file, whatever its name ends in: bitmap, GIF, PNG, JPEG, or metafile. name is how
// the file is called in errors. Error 53 when there is no file, 481 when it is no picture or a broken one.
QImage loadPicture(const std::filesystem::path& file, const std::string& name);

// Saves an image as a bitmap; error 76 when the folder is missing, 75 when it cannot be written.
void saveBitmap(const QImage& image, const std::filesystem::path& file, const std::string& name);

// A metafile drawn into an image with transparent background; a null image when the data is no sound metafile.
QImage drawMetafile(const QByteArray& data);

} // namespace servopanel::panel
