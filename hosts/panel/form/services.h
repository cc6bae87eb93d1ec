#pragma once

#include "basic/variant.h"
#include "panel/form/value_source.h"
#include "panel/look/panel_text.h"
#include "panel/look/value_state.h"
#include "platform/child_id.h"
#include "platform/member.h"

#include <QImage>
#include <QString>

#include <string>
#include <string_view>

namespace servopanel::panel {

// The font of a language, as its texts are to be shown in.
struct LanguageFont {
    std::string name = "DejaVu Sans";
    std::int16_t charset = 0;
    std::int16_t weight = 400;
};

class Child;
class ControlHost;

// What the controls of a form ask of the panel around them.
class Services {
public:
    virtual ~Services() = default;

    // A text in the current language; one that is missing shows its key.
    virtual std::string text(std::string_view key) = 0;
    virtual LanguageFont font() = 0;
    // A word of the panel itself in the current language.
    virtual QString word(PanelText text) = 0;

    // A picture of the project by its relative name; a null image, and a note for the engineer, when it cannot be had.
    virtual QImage picture(std::string_view name) = 0;

    // The value of an input, into the process variable that mirrors it.
    virtual void mirror(std::string_view variable, const basic::Variant& value) = 0;

    // What a control did by itself at the operator's hand, in the words of a replay scenario ("mask 12.5").
    virtual void operation(const std::string& command) = 0;

    // A footer key that the panel needs for itself just now; true when it was used up.
    virtual bool takesKey(int /*number*/) { return false; }

    // How far what a display holds is the machine's value.
    virtual ValueState valueState(const ValueSource&) { return ValueState::Fresh; }

    // The variable of a family that was asked for last, empty when none was, and what it holds; nullptr when it could not
    // be read. The value lives until the next read.
    struct FamilyRead {
        std::string_view variable;
        const basic::Variant* value = nullptr;
    };
    virtual FamilyRead familyRead(std::string_view /*family*/) { return {}; }

    // Whether what the operator did may enter a control of the library; otherwise he was told why not.
    virtual bool admits(ControlHost&, platform::ChildId, std::string_view /*event*/, platform::Args)
    {
        return true;
    }

    // The operator has touched an input that his access level does not allow to be changed.
    virtual void lockedTouched(Child&) { }

    // An event is about to enter a control of the library, and its procedure is over.
    virtual void eventBegins(ControlHost&, std::string_view /*event*/, platform::Args) { }
    virtual void eventEnds(ControlHost&, std::string_view /*event*/, platform::Args) { }
};

} // namespace servopanel::panel
