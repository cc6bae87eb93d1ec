#include "panel/runtime/languages.h"

#include "basic/conversions.h"

namespace servopanel::panel {

Languages::Languages(const std::filesystem::path& project, const machine::ProjectFile& file)
{
    for (const machine::ProjectFile::Language& language : file.languages)
        all_.push_back({language.number, language.code, language.name,
            machine::Texts::load(project / "Texts" / (language.code + ".txt"))});
    choose(file.language);
}

std::int16_t Languages::current() const { return all_.empty() ? std::int16_t{0} : all_[chosen_].number; }

std::string_view Languages::currentCode() const
{
    return all_.empty() ? std::string_view{} : all_[chosen_].code;
}

bool Languages::choose(std::int16_t number)
{
    for (std::size_t i = 0; i < all_.size(); ++i) {
        if (all_[i].number != number) continue;
        chosen_ = i;
        return true;
    }
    return false;
}

bool Languages::choose(std::string_view numberOrCode)
{
    for (const Language& language : all_)
        if (language.code == numberOrCode || basic::decimal(std::int32_t{language.number}) == numberOrCode)
            return choose(language.number);
    return false;
}

std::string Languages::text(std::string_view key) const
{
    return all_.empty() ? std::string{} : all_[chosen_].texts.text(key);
}

std::vector<machine::Problem> Languages::problems() const
{
    std::vector<machine::Problem> result;
    for (const Language& language : all_)
        result.insert(result.end(), language.texts.problems().begin(), language.texts.problems().end());
    return result;
}

} // namespace servopanel::panel
