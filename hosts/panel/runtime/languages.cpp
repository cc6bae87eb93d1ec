#include "panel/runtime/languages.h"

#include "basic/conversions.h"

#include <QFontDatabase>
#include <QRawFont>

#include <algorithm>
#include <set>
#include <utility>

namespace servopanel::panel {

namespace {

QString familyOf(const machine::ProjectFile::Language& language)
{
    return language.font.empty() ? familyForLanguage(language.code) : QString::fromStdString(language.font);
}

// The first letter that no font of the list has, 0 when there is none. Letters of the Latin alphabet are everywhere.
char32_t missingLetter(const machine::Texts& texts, const QStringList& families)
{
    constexpr char32_t firstAsked = 0x80;
    std::set<char32_t> letters;
    for (const auto& [key, text] : texts.all())
        for (const char32_t letter : QString::fromStdString(text).toStdU32String())
            if (letter >= firstAsked && QChar::isLetter(letter)) letters.insert(letter);
    std::vector<QRawFont> fonts;
    for (const QString& family : families)
        fonts.push_back(QRawFont::fromFont(QFont{family}));
    for (const char32_t letter : letters)
        if (std::none_of(fonts.begin(), fonts.end(),
                [letter](const QRawFont& font) { return font.supportsCharacter(letter); }))
            return letter;
    return 0;
}

std::string nameOf(const machine::ProjectFile::Language& language)
{
    return "language \"" + language.code + "\" (" + language.name + ")";
}

std::string codePoint(char32_t letter)
{
    return "U+" + QString::number(letter, 16).toUpper().rightJustified(4, u'0').toStdString();
}

} // namespace

Languages::Languages(const std::filesystem::path& project, const machine::ProjectFile& file)
{
    for (const machine::ProjectFile::Language& language : file.languages)
        all_.push_back({language, machine::Texts::load(project / "Texts" / (language.code + ".txt"))});
    choose(file.language);
}

std::int16_t Languages::current() const
{
    const Language* const language = chosen();
    return language == nullptr ? std::int16_t{0} : language->settings.number;
}

std::string_view Languages::currentCode() const
{
    const Language* const language = chosen();
    return language == nullptr ? std::string_view{} : std::string_view{language->settings.code};
}

bool Languages::isRightToLeft() const
{
    const Language* const language = chosen();
    return language != nullptr && language->settings.rightToLeft;
}

bool Languages::choose(std::int16_t number)
{
    for (std::size_t i = 0; i < all_.size(); ++i) {
        if (all_[i].settings.number != number) continue;
        chosen_ = i;
        return true;
    }
    return false;
}

bool Languages::choose(std::string_view numberOrCode)
{
    for (const Language& language : all_)
        if (language.settings.code == numberOrCode
            || basic::decimal(std::int32_t{language.settings.number}) == numberOrCode)
            return choose(language.settings.number);
    return false;
}

const std::string* Languages::find(std::string_view key) const
{
    const Language* const language = chosen();
    return language == nullptr ? nullptr : language->texts.find(key);
}

std::string Languages::text(std::string_view key) const
{
    const std::string* const found = find(key);
    return found == nullptr ? std::string{key} : *found;
}

LanguageFont Languages::font() const
{
    const Language* const language = chosen();
    if (language == nullptr) return {};
    return {familyOf(language->settings).toStdString(), charsetForLanguage(language->settings.code)};
}

LanguageLook Languages::look() const
{
    LanguageLook look;
    const Language* const shown = chosen();
    if (shown != nullptr) look = {{familyOf(shown->settings)}, shown->settings.arabicIndicDigits};
    look.families += valueFamily();
    for (const Language& language : all_)
        look.families += familyOf(language.settings);
    look.families.removeDuplicates();
    return look;
}

std::vector<machine::Problem> Languages::problems() const
{
    std::vector<machine::Problem> result;
    for (const Language& language : all_) {
        result.insert(result.end(), language.texts.problems().begin(), language.texts.problems().end());
        const QString family = familyOf(language.settings);
        if (!QFontDatabase::hasFamily(family)) {
            const std::string package = packageOfFamily(family).toStdString();
            result.push_back({nameOf(language.settings), "font \"" + family.toStdString() + "\"",
                "is not installed; "
                    + (package.empty() ? std::string{"install it or name another one in project.json"}
                                       : "install the package " + package)});
        } else if (const char32_t letter = missingLetter(language.texts, {family, valueFamily()});
                   letter != 0) {
            result.push_back({nameOf(language.settings), "font \"" + family.toStdString() + "\"",
                "has no letter " + codePoint(letter) + " of the texts; name another font in project.json"});
        }
    }
    return result;
}

} // namespace servopanel::panel
