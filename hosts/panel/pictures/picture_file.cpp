#include "panel/pictures/picture_file.h"

#include "basic/error.h"
#include "portable/file_error.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QSaveFile>

namespace servopanel::panel {

namespace {

constexpr qint64 largestFile = 100'000'000; // bytes
constexpr int invalidPicture = 481;

QString toQt(const std::filesystem::path& file) { return QFile::decodeName(file.c_str()); }

bool isMetafile(const QByteArray& data)
{
    // Placeable, or a plain header: on disk or in memory, nine words long.
    return data.startsWith(QByteArray::fromHex("d7cdc69a"))
        || data.startsWith(QByteArray::fromHex("01000900"))
        || data.startsWith(QByteArray::fromHex("02000900"));
}

} // namespace

QImage loadPicture(const std::filesystem::path& file, const std::string& name)
{
    QFile input{toQt(file)};
    if (!input.exists()) portable::raiseFileError(portable::FileError::FileNotFound, name, "no such file");
    if (input.size() > largestFile || !input.open(QIODevice::ReadOnly))
        portable::raiseFileError(portable::FileError::AccessError, name, "cannot be read");
    const QByteArray data = input.readAll();

    QImage image;
    if (isMetafile(data)) {
        image = drawMetafile(data);
    } else {
        QBuffer buffer;
        buffer.setData(data);
        buffer.open(QIODevice::ReadOnly);
        QImageReader reader{&buffer};
        reader.setDecideFormatFromContent(true);
        image = reader.read();
    }
    if (image.isNull()) throw basic::Error{invalidPicture, {}, "'" + name + "': invalid picture"};
    // Files carry densities of all kinds; on the panel a pixel is a pixel.
    image.setDevicePixelRatio(1);
    return image;
}

void saveBitmap(const QImage& image, const std::filesystem::path& file, const std::string& name)
{
    if (!std::filesystem::is_directory(file.parent_path()))
        portable::raiseFileError(portable::FileError::PathNotFound, name, "no such folder");
    QSaveFile output{toQt(file)};
    const bool saved = output.open(QIODevice::WriteOnly) && image.save(&output, "BMP") && output.commit();
    if (!saved) portable::raiseFileError(portable::FileError::AccessError, name, "cannot be written");
}

} // namespace servopanel::panel
