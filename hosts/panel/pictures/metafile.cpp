// libwmf reads the records and keeps their state; what they draw goes to a painter of our own. The devices that libwmf
// brings are no help here: the one for images paints without smoothing and wants fonts that a panel does not have, the
// one for drawings writes bitmaps into files beside it.
#include "panel/pictures/metafile.h"

#include "panel/pictures/metafile_painter.h"
#include "panel/pictures/metafile_records.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>

namespace servopanel::panel {

namespace {

constexpr int longestOfUnknown = 256; // pixels of a picture that states no size
constexpr double longestOfAll = 4096;
constexpr double pixelsPerInch = 96;
// The reader maps the window of a metafile that scales itself onto a square of this many device units, whatever its
// proportions, and the units of any other to points.
constexpr float deviceSide = 1024;
constexpr float pointsPerInch = 72;
constexpr U16 scalesItself = 7; // map modes from here on

// The reader takes sizes out of the file; a wrong one must not take all the memory there is.
constexpr std::size_t mostMemory = 64'000'000; // in one piece
void* take(void*, std::size_t bytes) { return bytes > mostMemory ? nullptr : std::malloc(bytes); }
void* takeAgain(void*, void* before, std::size_t bytes)
{
    return bytes > mostMemory ? nullptr : std::realloc(before, bytes);
}
void giveBack(void*, void* memory) { std::free(memory); }

void noFont(wmfAPI*, wmfFont*) { }

struct Destroy {
    void operator()(wmfAPI* api) const { wmf_lite_destroy(api); }
};

bool play(wmfAPI* api, QImage& image, const wmfD_Rect& bounds, double density)
{
    MetafilePainter& painter = MetafilePainter::of(api);
    painter.begin(image, bounds, density);
    wmfD_Rect window = bounds;
    const bool played = wmf_play(api, 0, &window) == wmf_E_None;
    painter.end();
    return played && !painter.isExhausted();
}

// The part of the device that becomes the picture: the frame that the file names, or all that is drawn.
wmfD_Rect frame(wmfAPI* api, const wmfD_Rect& drawn, float width, float height)
{
    if (api->File->placeable == 0) return drawn;
    if (MetafilePainter::of(api).mapMode() >= scalesItself) return {{0, 0}, {deviceSide, deviceSide}};
    const float inch = std::max<float>(1, api->File->pmh->Inch);
    return {{0, 0}, {width * pointsPerInch / inch, height * pointsPerInch / inch}};
}

bool isSound(double length) { return std::isfinite(length) && length > 0; }

QSizeF ownSize(wmfAPI* api, double width, double height)
{
    if (api->File->placeable != 0 && api->File->pmh->Inch != 0) {
        const double pixels = pixelsPerInch / api->File->pmh->Inch;
        const QSizeF size{width * pixels, height * pixels};
        return std::max(size.width(), size.height()) > longestOfAll
            ? size.scaled(longestOfAll, longestOfAll, Qt::KeepAspectRatio)
            : size;
    }
    return QSizeF{width, height}.scaled(longestOfUnknown, longestOfUnknown, Qt::KeepAspectRatio);
}

} // namespace

QImage drawMetafile(const QByteArray& data, int longestSide)
{
    // The reader wants memory it could write to.
    QByteArray sound = data;
    if (!makeSound(sound)) return {};

    MetafilePainter painter{sound};
    wmfAPI_Options options{};
    options.function = &MetafilePainter::useFor;
    options.malloc = take;
    options.realloc = takeAgain;
    options.free = giveBack;
    wmfAPI* made = nullptr;
    const wmf_error_t created = wmf_lite_create(&made,
        WMF_OPT_ALLOC | WMF_OPT_FUNCTION | WMF_OPT_IGNORE_NONFATAL | WMF_OPT_NO_ERROR | WMF_OPT_NO_DEBUG,
        &options);
    const std::unique_ptr<wmfAPI, Destroy> api{made};
    if (created != wmf_E_None) return {};
    api->user_data = &painter;
    // Fonts are the painter's matter, but the reader asks for them all the same.
    wmfFontData fonts{noFont, textWidth, nullptr};
    api->font_data = &fonts;
    auto* bytes = reinterpret_cast<unsigned char*>(sound.data());
    if (wmf_mem_open(api.get(), bytes, static_cast<long>(sound.size())) != wmf_E_None) return {};

    wmfD_Rect drawn{};
    float width = 0;
    float height = 0;
    if (wmf_scan(api.get(), 0, &drawn) != wmf_E_None || wmf_size(api.get(), &width, &height) != wmf_E_None)
        return {};
    if (!isSound(static_cast<double>(width)) || !isSound(static_cast<double>(height))) return {};

    // How the file counts is known only after its shapes were drawn once.
    QImage rehearsal{1, 1, QImage::Format_ARGB32_Premultiplied};
    if (!play(api.get(), rehearsal, drawn, 1)) return {};
    const wmfD_Rect bounds = frame(api.get(), drawn, width, height);
    if (!isSound(static_cast<double>(bounds.BR.x - bounds.TL.x))
        || !isSound(static_cast<double>(bounds.BR.y - bounds.TL.y)))
        return {};

    const QSizeF own = ownSize(api.get(), static_cast<double>(width), static_cast<double>(height));
    const QSizeF size = longestSide == 0 ? own : own.scaled(longestSide, longestSide, Qt::KeepAspectRatio);
    const double density = std::max(size.width(), size.height()) / std::max(own.width(), own.height());
    QImage image{size.toSize().expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied};
    const bool played = !image.isNull() && play(api.get(), image, bounds, density);
    wmf_mem_close(api.get());
    return played ? image : QImage{};
}

} // namespace servopanel::panel
