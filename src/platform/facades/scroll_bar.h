#pragma once

#include "platform/facades/facade.h"

namespace servopanel::platform {

// Scroll bar; positions count from 1.
class ScrollBar : public Facade {
public:
    using Facade::Facade;
    std::int16_t Position() const { return basic::toInt16(control().get(ids::ScrollBar::Position)); }
    std::int16_t Seite() const { return basic::toInt16(control().get(ids::ScrollBar::Seite)); }
    std::int16_t Anzahl() const { return basic::toInt16(control().get(ids::ScrollBar::Anzahl)); }
    void Anzahl(std::int16_t anzahl) { control().put(ids::ScrollBar::Anzahl, anzahl); }
    // Pixels.
    void Rahmen(std::int16_t breite) { control().put(ids::ScrollBar::Rahmen, breite); }
    void Aktiv(bool aktiv) { control().put(ids::ScrollBar::Aktiv, aktiv); }
    void Gesperrt(bool gesperrt) { control().put(ids::ScrollBar::Gesperrt, gesperrt); }
};

} // namespace servopanel::platform
