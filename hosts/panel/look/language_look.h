#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <string_view>

namespace servopanel::panel {

// How texts look in the panel's language. One language is shown at a time, so there is one look for the whole program.
struct LanguageLook {
    QStringList families; // fonts in the order in which they are asked for a letter
    bool arabicIndicDigits = false;
};

// The panel sets it when a language is chosen; what is drawn afterwards has the new look.
void setLanguageLook(LanguageLook look);
const LanguageLook& languageLook();

// The family that a language is shown in unless its project names another; code: "zh" or "zh-TW".
QString familyForLanguage(std::string_view code);
// Character set of a language in the numbers of fonts, 0 for the western ones.
std::int16_t charsetForLanguage(std::string_view code);
// The Debian package that brings a family, empty when the panel does not know it.
QString packageOfFamily(const QString& family);

// The family that values are shown in, whatever the language: their digits stay as wide as they are.
QString valueFamily();

} // namespace servopanel::panel
