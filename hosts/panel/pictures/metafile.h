#pragma once

#include <QByteArray>
#include <QImage>

namespace servopanel::panel {

// A metafile drawn into an image with transparent background; a null image when the data is no sound metafile, or one
// that asks for more work than a picture of a panel may take.
//
// longestSide: pixels of the image's longer side. 0: the picture's own size at 96 pixels per inch, or 256 pixels where
// the file states none.
QImage drawMetafile(const QByteArray& data, int longestSide);

} // namespace servopanel::panel
