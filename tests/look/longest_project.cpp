#include "look/longest_project.h"

#include "machine/texts.h"
#include "panel/look/fonts.h"
#include "panel/look/panel_text.h"

#include <QFontMetrics>

#include <fstream>
#include <map>
#include <vector>

namespace servopanel::look {

namespace {

constexpr int percentMore = 30;

int widthOf(const std::string& text)
{
    static const QFontMetrics metrics{servopanel::panel::panelFont(16)};
    return metrics.horizontalAdvance(QString::fromStdString(text));
}

// A text is a caption, or a caption, ";" and a unit. Each part has its own longest.
struct Longest {
    std::string caption;
    std::string unit;
    bool hasUnit = false;

    void take(const std::string& text)
    {
        const std::size_t mark = text.find(';');
        const std::string first = text.substr(0, mark);
        if (widthOf(first) > widthOf(caption)) caption = first;
        if (mark == std::string::npos) return;
        hasUnit = true;
        const std::string second = text.substr(mark + 1);
        if (widthOf(second) > widthOf(unit)) unit = second;
    }
    std::string text() const { return hasUnit ? caption + ';' + unit : caption; }
};

// The keys of a file of texts, in its own order.
std::map<std::string, Longest> longestOf(const std::filesystem::path& folder)
{
    std::map<std::string, Longest> longest;
    for (const auto& file : std::filesystem::directory_iterator{folder}) {
        const machine::Texts texts = machine::Texts::load(file.path());
        std::ifstream in{file.path()};
        for (std::string line; std::getline(in, line);) {
            const std::string key = line.substr(0, line.find(" ="));
            if (const std::string* text = texts.find(key)) longest[key].take(*text);
        }
    }
    return longest;
}

// All words of the panel: behind the last one comes the first again.
std::vector<panel::PanelText> panelTexts()
{
    std::vector<panel::PanelText> all;
    for (int number = 0;; ++number) {
        const auto text = static_cast<panel::PanelText>(number);
        if (!all.empty() && panel::panelTextKey(text) == panel::panelTextKey(all.front())) return all;
        all.push_back(text);
    }
}

} // namespace

std::string padded(const std::string& text)
{
    const std::size_t mark = text.find(';');
    const QString caption = QString::fromStdString(text.substr(0, mark));
    const qsizetype more = (caption.size() * percentMore + 99) / 100;
    QString longer = caption;
    // Words rather than letters where there is room for one: captions are wrapped at blanks.
    if (more >= 4) longer += u' ';
    while (!caption.isEmpty() && longer.size() < caption.size() + more)
        longer += caption.left(caption.size() + more - longer.size());
    while (longer.endsWith(u' ')) // would be trimmed
        longer.back() = u'x';
    return longer.toStdString() + (mark == std::string::npos ? std::string{} : text.substr(mark));
}

LongestProject::LongestProject(const std::filesystem::path& project, const std::string& code, Padding padding)
{
    std::filesystem::copy(project, folder(), std::filesystem::copy_options::recursive);
    const std::filesystem::path texts = folder() / "Texts";
    std::map<std::string, Longest> longest = longestOf(texts);
    // Words of the panel that the project does not bring.
    for (const panel::PanelText text : panelTexts())
        for (const char* language : {"de", "en", "ar", "zh"})
            longest[std::string{panel::panelTextKey(text)}].take(
                panel::panelWord(text, language).toStdString());
    std::ofstream out{texts / (code + ".txt"), std::ios::trunc};
    for (const auto& [key, text] : longest)
        out << key << " = \"" << (padding == Padding::None ? text.text() : padded(text.text())) << "\"\n";
}

} // namespace servopanel::look
