#include "panel/look/reading_order.h"

#include "panel/look/language_look.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace servopanel::panel {

namespace {

constexpr QChar isolate{0x2066}; // begins a part from left to right that the text around it does not touch
constexpr QChar isolateEnd{0x2069};

bool isRightToLeftLetter(QChar character)
{
    const QChar::Direction direction = character.direction();
    return direction == QChar::DirR || direction == QChar::DirAL;
}

// Letters from left to right and digits: what a number with its unit begins and ends with.
bool isLeftToRight(QChar character)
{
    const QChar::Direction direction = character.direction();
    return direction == QChar::DirL || direction == QChar::DirEN || direction == QChar::DirAN
        || character.isSurrogate();
}

bool isSign(QChar character)
{
    constexpr QChar minus{0x2212};
    return character == u'-' || character == u'+' || character == minus || character == u'±';
}

// "%", "°" and the like belong to the number before them.
bool isAfterNumber(QChar character) { return character.direction() == QChar::DirET && !isSign(character); }

// Where a part from left to right that begins at the place ends; signs and blanks within it belong to it.
qsizetype endOfPart(const QString& text, qsizetype begin)
{
    qsizetype end = begin + 1;
    for (qsizetype i = begin + 1; i < text.size() && !isRightToLeftLetter(text[i]); ++i)
        if (isLeftToRight(text[i]) || (isAfterNumber(text[i]) && i == end)) end = i + 1;
    return end;
}

QString withPartsIsolated(const QString& text)
{
    QString result;
    for (qsizetype i = 0; i < text.size();) {
        const bool signBefore = isSign(text[i]) && i + 1 < text.size() && text[i + 1].isDigit();
        if (!isLeftToRight(text[i]) && !signBefore) {
            result += text[i++];
            continue;
        }
        const qsizetype end = endOfPart(text, i);
        result += isolate + text.mid(i, end - i) + isolateEnd;
        i = end;
    }
    return result;
}

QString withArabicIndicDigits(QString text)
{
    constexpr char16_t zero = 0x0660;
    constexpr QChar decimalPoint{0x066B};
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPoint =
            text[i] == u'.' && i > 0 && i + 1 < text.size() && text[i - 1].isDigit() && text[i + 1].isDigit();
        if (isPoint) text[i] = decimalPoint;
        if (text[i] >= u'0' && text[i] <= u'9')
            text[i] = QChar{static_cast<char16_t>(zero + (text[i].unicode() - u'0'))};
    }
    return text;
}

} // namespace

bool runsRightToLeft(const QString& text)
{
    return std::any_of(text.begin(), text.end(), isRightToLeftLetter);
}

QString forDrawing(const QString& text, bool rightToLeft)
{
    const QString digits = languageLook().arabicIndicDigits ? withArabicIndicDigits(text) : text;
    return rightToLeft ? withPartsIsolated(digits) : digits;
}

int drawingFlags(Qt::Alignment alignment, Qt::LayoutDirection widget, bool rightToLeft)
{
    const int place = static_cast<int>(QStyle::visualAlignment(widget, alignment) | Qt::AlignAbsolute);
    return place | (rightToLeft ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight);
}

Qt::LayoutDirection directionOf(const QPainter& painter)
{
    const auto* const widget = dynamic_cast<const QWidget*>(painter.device());
    return widget == nullptr ? Qt::LeftToRight : widget->layoutDirection();
}

} // namespace servopanel::panel
