#include "panel/pictures/picture_file.h"

#include "basic/error.h"
#include "panel/pictures/metafile.h"
#include "panel/pictures/picture_kind.h"
#include "portable/file_error.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QSaveFile>

namespace servopanel::panel {

namespace {

constexpr qint64 largestFile = 100'000'000; // bytes
constexpr qint64 mostPixels = 32'000'000;
constexpr int mostMegabytes = 160; // that a decoder may take for one picture
constexpr int invalidPicture = 481;

QString toQt(const std::filesystem::path& file) { return QFile::decodeName(file.c_str()); }

[[noreturn]] void raiseInvalid(const std::string& name, const std::string& why)
{
    throw basic::Error{invalidPicture, {}, "'" + name + "': invalid picture, " + why};
}

const char* decoderOf(PictureKind kind)
{
    switch (kind) {
    case PictureKind::Bitmap: return "bmp";
    case PictureKind::Gif: return "gif";
    case PictureKind::Png: return "png";
    default: return "jpeg";
    }
}

QImage decode(PictureKind kind, const QByteArray& data, const std::string& name)
{
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader::setAllocationLimit(mostMegabytes);
    // The decoder is named: none but these is ever let loose on a file.
    QImageReader reader{&buffer, decoderOf(kind)};
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (qint64{size.width()} * size.height() > mostPixels)
        raiseInvalid(name,
            QStringLiteral("%1 x %2 pixels are too many").arg(size.width()).arg(size.height()).toStdString());
    const QImage image = reader.read();
    if (image.isNull()) raiseInvalid(name, reader.errorString().toStdString());
    return image;
}

} // namespace

QImage loadPicture(const std::filesystem::path& file, const std::string& name, int metafileSide)
{
    QFile input{toQt(file)};
    if (!input.exists()) portable::raiseFileError(portable::FileError::FileNotFound, name, "no such file");
    if (input.size() > largestFile || !input.open(QIODevice::ReadOnly))
        portable::raiseFileError(portable::FileError::AccessError, name, "cannot be read");
    return decodePicture(input.readAll(), name, metafileSide);
}

QImage decodePicture(const QByteArray& data, const std::string& name, int metafileSide)
{
    const PictureKind kind = pictureKind(data);
    if (kind == PictureKind::None) raiseInvalid(name, "neither bitmap, GIF, PNG, JPEG nor metafile");
    if (!isWhole(kind, data)) raiseInvalid(name, "the file breaks off or is damaged");
    QImage image =
        kind == PictureKind::Metafile ? drawMetafile(data, metafileSide) : decode(kind, data, name);
    if (image.isNull()) raiseInvalid(name, "its records are damaged or ask for too much");
    // Files carry densities of all kinds; on the panel a pixel is a pixel.
    image.setDevicePixelRatio(1);
    return image;
}

void saveBitmap(const QImage& image, const std::filesystem::path& file, const std::string& name)
{
    if (!std::filesystem::is_directory(file.parent_path()))
        portable::raiseFileError(portable::FileError::PathNotFound, name, "no such folder");
    if (!saveImage(image, file, "BMP"))
        portable::raiseFileError(portable::FileError::AccessError, name, "cannot be written");
}

bool saveImage(const QImage& image, const std::filesystem::path& file, const char* format)
{
    QSaveFile output{toQt(file)};
    // commit does not see what a full disk refused; flush does.
    return output.open(QIODevice::WriteOnly) && image.save(&output, format) && output.flush()
        && output.commit();
}

} // namespace servopanel::panel
