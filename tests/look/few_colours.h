#pragma once

#include <QImage>

namespace servopanel::look {

// The picture with at most 256 colours, chosen where it has most of them: half the file, and nothing that an eye or a
// comparison would notice.
QImage withFewColours(const QImage& picture);

} // namespace servopanel::look
