#pragma once

#include "platform/facades/facade.h"

namespace servopanel::platform {

// Plain text label.
class Label : public Facade {
public:
    using Facade::Facade;
    void Caption(std::string_view text) { control().put(names::Caption, text); }
    void ForeColor(std::int32_t farbe) { control().put(names::ForeColor, farbe); }
    void FontName(const basic::Variant& name) { control().put(names::FontName, name); }
    void FontCharset(const basic::Variant& charset) { control().put(names::FontCharset, charset); }
    void FontBold(const basic::Variant& bold) { control().put(names::FontBold, bold); }
    void FontWeight(const basic::Variant& weight) { control().put(names::FontWeight, weight); }
};

// Anything that shows a picture: picture box of the platform or an intrinsic one.
class Bildfeld : public Facade {
public:
    using Facade::Facade;
    void Picture(const basic::ObjectRef& bild) { control().put(names::Picture, bild); }
};

class Zeitgeber : public Facade {
public:
    using Facade::Facade;
    // Ticks every 500 ms while enabled.
    void Enabled(bool enabled) { control().put(names::Enabled, enabled); }
};

// A child that is a control of this library, seen from the shell. Values are 16-bit, -1 for True.
class Kind : public Facade {
public:
    using Facade::Facade;
    std::int16_t BildInit() const { return basic::toInt16(control().get(names::BildInit)); }
    void BildInit(std::int16_t wert) { control().put(names::BildInit, wert); }
    std::int16_t BildShow() const { return basic::toInt16(control().get(names::BildShow)); }
    void BildShow(std::int16_t wert) { control().put(names::BildShow, wert); }
    void SpracheGeandert(std::int16_t sprache) { control().put(names::SpracheGeandert, sprache); }
};

} // namespace servopanel::platform
