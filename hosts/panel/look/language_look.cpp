#include "panel/look/language_look.h"

#include <array>
#include <utility>

namespace servopanel::panel {

namespace {

constexpr const char* western =
    "DejaVu Sans"; // Latin, Greek, Cyrillic, Arabic and Hebrew, legible from 8 points
constexpr const char* eastAsian = "WenQuanYi Micro Hei";

struct Script {
    std::string_view code;
    std::int16_t charset;
    const char* family;
};

constexpr std::array scripts{
    Script{"zh", 134, eastAsian},
    Script{"ja", 128, eastAsian},
    Script{"ko", 129, eastAsian},
    Script{"ar", 178, western},
    Script{"fa", 178, western},
    Script{"ur", 178, western},
    Script{"he", 177, western},
    Script{"el", 161, western},
    Script{"tr", 162, western},
    Script{"ru", 204, western},
    Script{"uk", 204, western},
    Script{"bg", 204, western},
    Script{"pl", 238, western},
    Script{"cs", 238, western},
    Script{"hu", 238, western},
};

constexpr std::array packages{
    std::pair{western, "fonts-dejavu-core"},
    std::pair{eastAsian, "fonts-wqy-microhei"},
};

const Script* scriptOf(std::string_view code)
{
    const std::string_view language = code.substr(0, code.find_first_of("-_"));
    for (const Script& script : scripts)
        if (script.code == language) return &script;
    return nullptr;
}

LanguageLook& theLook()
{
    static LanguageLook look{{valueFamily()}};
    return look;
}

} // namespace

void setLanguageLook(LanguageLook look) { theLook() = std::move(look); }
const LanguageLook& languageLook() { return theLook(); }

QString valueFamily() { return QString::fromLatin1(western); }

QString familyForLanguage(std::string_view code)
{
    const Script* const script = scriptOf(code);
    return QString::fromLatin1(script == nullptr ? western : script->family);
}

std::int16_t charsetForLanguage(std::string_view code)
{
    const Script* const script = scriptOf(code);
    return script == nullptr ? std::int16_t{0} : script->charset;
}

QString packageOfFamily(const QString& family)
{
    for (const auto& [name, package] : packages)
        if (family == QLatin1String{name}) return QString::fromLatin1(package);
    return {};
}

} // namespace servopanel::panel
