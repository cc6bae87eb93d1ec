#include "servo_page/values/zeichnungsnummer.h"

#include "basic/arithmetic.h"

namespace servopanel::servo_page {

namespace {

constexpr double ersteStelle = 1000000.0;
constexpr double mittlereStelle = 10000.0;

} // namespace

ZeichnungsTeile zeichnungZerlegen(double nummer)
{
    if (nummer == 0.0) return {};
    const double erster = basic::Int(basic::checked(nummer / ersteStelle));
    nummer = nummer - erster * ersteStelle;
    const double mittlerer = basic::Int(nummer / mittlereStelle);
    nummer = nummer - mittlerer * mittlereStelle;
    return {erster, mittlerer, basic::checked(nummer)};
}

double zeichnungZusammensetzen(const ZeichnungsTeile& teile)
{
    return basic::checked(teile[0] * ersteStelle + teile[1] * mittlereStelle + teile[2]);
}

} // namespace servopanel::servo_page
