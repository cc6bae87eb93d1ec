#pragma once

#include <QByteArray>

namespace servopanel::panel {

// What a picture file is by its first bytes.
enum class PictureKind { None, Bitmap, Gif, Png, Jpeg, Metafile };

PictureKind pictureKind(const QByteArray& data);

// Whether the file holds the whole picture: a decoder that finds half of one shows it with the rest in grey, and an
// operator takes that for the picture. Of a GIF the first image counts. Metafiles see metafile_records.h.
bool isWhole(PictureKind kind, const QByteArray& data);

} // namespace servopanel::panel
