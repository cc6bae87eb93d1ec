#pragma once

#include "panel/form/child.h"
#include "panel/widgets/header_bar.h"

namespace servopanel::panel {

// What the header needs from the panel.
class HeaderSource {
public:
    virtual ~HeaderSource() = default;
    virtual std::vector<HeaderLanguage> languages() = 0;
    virtual int language() = 0;
    // Makes it the panel's language; every control shows its texts in it afterwards.
    virtual void chooseLanguage(int number) = 0;
    virtual HeaderTexts headerTexts() = 0;
    // The wall clock, which may jump.
    virtual QDateTime now() { return QDateTime::currentDateTime(); }
    // Whether a language may be chosen now.
    virtual bool isFree() { return true; }
};

// Title bar with language selection, class Header. A chosen language is the panel's before it is reported.
class HeaderChild : public Child {
public:
    HeaderChild(QWidget* parent, Services& services, HeaderSource& source);
    // The bar may outlive this for a moment and asks nothing any more.
    ~HeaderChild() override;
    void languageChanged() override;
    // Reports the panel's language as if it were chosen again, for a part that came by none.
    void reportLanguage();

    HeaderBar& bar() { return static_cast<HeaderBar&>(view()); }

private:
    HeaderSource& source_;
};

} // namespace servopanel::panel
