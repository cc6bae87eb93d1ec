#pragma once

#include "panel/form/text_child.h"

namespace servopanel::panel {

// Text display of the platform, class VWSIndex, and with the same members the heading, class VWSLangSelect. A text that
// begins with "@" is a language text key, which the display resolves by itself in every language.
class VWSIndex : public TextChild {
public:
    VWSIndex(std::string className, QWidget* parent, Services& services);
    void languageChanged() override;
    // A drawing number part; captions are never changed.
    bool isChanged() const override;
    void setBeingEdited(bool edited) override;

    // What stands on the screen.
    const QString& shown() { return text().text(); }

private:
    void lookChanged() override;
    void setFontClass(const std::string& fontClass);

    std::string value_;
    std::string fontClass_;
    bool edited_ = false;
};

} // namespace servopanel::panel
