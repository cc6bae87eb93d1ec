#include "panel/form/header.h"

namespace servopanel::panel {

HeaderChild::HeaderChild(QWidget* parent, Services& panel, HeaderSource& source)
    : Child{"Header", *new HeaderBar{parent}, panel}
    , source_{source}
{
    bar().setLanguages(
        source_.languages(),
        [this](int number) {
            if (number == source_.language() || !source_.isFree()) return;
            source_.chooseLanguage(number);
            reportLanguage();
        },
        [&panel](PanelText text) { return panel.word(text); });
    bar().setClock([this] { return source_.now(); });
    bar().setLanguage(source_.language());
    bar().setTexts([this] { return source_.headerTexts(); });
}

HeaderChild::~HeaderChild()
{
    if (viewOrNull() == nullptr) return;
    bar().setTexts({});
    bar().setArrangedHandler({});
    bar().setClock([] { return QDateTime{}; });
}

void HeaderChild::reportLanguage()
{
    raise("SpracheGeandert", {basic::Variant{static_cast<std::int16_t>(source_.language())}});
}

void HeaderChild::languageChanged()
{
    if (viewOrNull() == nullptr) return;
    bar().setLanguage(source_.language());
    bar().refresh();
}

} // namespace servopanel::panel
