#pragma once

#include "platform/child_id.h"
#include "platform/form_data.h"
#include "platform/member.h"

#include <string_view>

namespace servopanel::platform {

// What a host sees of a control of the library (Servo, ServoMenu, ServoMain). No call lets an exception pass but get
// and put, which raise error 438 for an unknown property.
class HostedControl {
public:
    HostedControl() = default;
    HostedControl(const HostedControl&) = delete;
    HostedControl& operator=(const HostedControl&) = delete;
    virtual ~HostedControl() = default;

    // Life of a control: initialize after its form was made, show when it appears on the screen, terminate before it
    // is destroyed. A host never destroys a control while one of its procedures runs.
    virtual void initialize() = 0;
    virtual void show() = 0;
    virtual void terminate() = 0;

    // The control's own properties (BildInit, BildShow, SpracheGeandert), called by its container.
    virtual basic::Variant get(const Member& member) = 0;
    virtual void put(const Member& member, const basic::Variant& value) = 0;

    // An event of a child (empty name: of the control's own surface). False when the control has no handler for it;
    // nothing happens then. The events, with their arguments (16-bit numbers, singles in twips):
    //
    //   Servo      Header: SpracheGeandert(language)
    //              ServoMain: JetztAnzeigen(), MenuAnzeigen()    ServoMenu: JetztAnzeigen(), ServoBildAufrufen(position)
    //   ServoMain  Fußzeile: TasteClick(key)    ScrollBar: NeuePos(position)    Timer: Timer()
    //              Eingabemaske: EingabeAenderung(), Eingabefertig()    IniEingabe: EingabeFertig(), LostFocus()
    //              SollwertL, SollwertR, ZeichnungL, ZeichnungR (i): MouseDown(button, shift, x, y)
    //              SchalterL, SchalterR (i): SchalterGedrückt()
    //   ServoMenu  the surface, Beschriftung (i), BildIm (i): MouseDown, MouseMove, MouseUp(button, shift, x, y)
    //              Fußzeile: TasteClick(key)    ScrollBar: NeuePos(position)
    virtual bool deliver(ChildId child, std::string_view event, Args args) = 0;

    virtual FormData form() const = 0;
};

} // namespace servopanel::platform
