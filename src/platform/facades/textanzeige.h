#pragma once

#include "platform/facades/facade.h"

namespace servopanel::platform {

// Text display: captions, units, drawing numbers, marker points, headings.
class Textanzeige : public Facade {
public:
    using Facade::Facade;
    std::string Text() const { return basic::toText(control().get(ids::VWSIndex::Text)); }
    // A text that begins with "@" is a language text key; the display follows the language by itself then.
    void Text(std::string_view text) { control().put(ids::VWSIndex::Text, text); }
    std::int32_t Farbe() const { return basic::toInt32(control().get(ids::VWSIndex::Farbe)); }
    void Farbe(std::int32_t farbe) { control().put(ids::VWSIndex::Farbe, farbe); }
    void FontBold(bool fett) { control().put(names::FontBold, fett); }
    void Hintergrund(std::int32_t farbe) { control().put(ids::VWSIndex::Hintergrund, farbe); }
};

} // namespace servopanel::platform
