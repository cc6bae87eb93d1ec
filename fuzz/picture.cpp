// Pictures of all kinds: their size by the header alone, as the replay tool has it, and decoded, metafiles drawn.
#include "basic/error.h"
#include "fuzz/fuzz.h"
#include "panel/pictures/picture_file.h"
#include "recording/project/picture_size.h"

#include <QGuiApplication>

#include <cstdint>
#include <memory>

// What a metafile's text made fontconfig find out stays with it until the end of the program.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

namespace servopanel::fuzz {

namespace {

void startQt()
{
    static int count = 1;
    static char name[] = "picture";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Lives until the end of the program: libFuzzer leaves by exit().
    static const auto* const application = new QGuiApplication{count, arguments};
    (void)application;
}

void measure(std::string_view bytes)
{
    constexpr std::int32_t largest = 32767; // pixels, as on the form
    const auto size = recording::pictureSize(bytes);
    if (!size) return;
    if (size->width < 1 || size->height < 1 || size->width > largest || size->height > largest)
        broken("a size is one that a form can have");
}

} // namespace

void feed(std::string_view bytes)
{
    static const bool started = (startQt(), true);
    (void)started;
    measure(bytes);
    try {
        const QImage image = panel::decodePicture(
            QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())), "a picture", 64);
        if (image.isNull()) broken("what is loaded is a picture");
    } catch (const basic::Error& error) {
        if (error.number != 481) broken("a picture that is none is error 481");
    }
}

} // namespace servopanel::fuzz
