// Pictures of all kinds, metafiles drawn.
#include "basic/error.h"
#include "fuzz/fuzz.h"
#include "panel/pictures/picture_file.h"

#include <QGuiApplication>

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

} // namespace

void feed(std::string_view bytes)
{
    static const bool started = (startQt(), true);
    (void)started;
    try {
        const QImage image = panel::decodePicture(
            QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())), "a picture", 64);
        if (image.isNull()) broken("what is loaded is a picture");
    } catch (const basic::Error& error) {
        if (error.number != 481) broken("a picture that is none is error 481");
    }
}

} // namespace servopanel::fuzz
