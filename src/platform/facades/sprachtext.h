#pragma once

#include "platform/facades/facade.h"

namespace servopanel::platform {

// Language texts by key in the current language, and that language's font.
class Sprachtext : public Facade {
public:
    using Facade::Facade;
    std::string Text(std::string_view schlüssel)
    {
        const basic::Variant args[]{schlüssel};
        return basic::toText(control().call(ids::VWSLanguage::Text, args));
    }
    basic::Variant FontName() const { return control().get(names::FontName); }
    basic::Variant FontCharset() const { return control().get(names::FontCharset); }
    basic::Variant FontBold() const { return control().get(names::FontBold); }
    basic::Variant FontWeight() const { return control().get(names::FontWeight); }
};

} // namespace servopanel::platform
