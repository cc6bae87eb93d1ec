#include "servo_menu/raster.h"

namespace servopanel::servo_menu {

namespace {

TastenRaster großesRaster()
{
    TastenRaster raster;
    raster.Spalte[0] = 105.0F;
    raster.Spalte[1] = 9195.0F;
    raster.Zeile[0] = 2340.0F;
    raster.Zeile[1] = 5175.0F;
    raster.Zeile[2] = 8010.0F;
    raster.Zeile[3] = 10845.0F;
    raster.TastenHöhe = 2760.0F;
    raster.TastenBreite = 9015.0F;
    raster.Maß3 = 9015.0F;
    raster.Maß4 = 855.0F;
    raster.Maß5 = 495.0F;
    raster.Maß6 = 7305.0F;
    raster.Maß7 = 2190.0F;
    return raster;
}

TastenRaster kleinesRaster()
{
    TastenRaster raster;
    raster.Spalte[0] = 60.0F;
    raster.Spalte[1] = 5760.0F;
    raster.Zeile[0] = 1365.0F;
    raster.Zeile[1] = 3030.0F;
    raster.Zeile[2] = 4695.0F;
    raster.Zeile[3] = 6360.0F;
    raster.TastenHöhe = 1620.0F;
    raster.TastenBreite = 5655.0F;
    raster.Maß3 = 5640.0F;
    raster.Maß4 = 630.0F;
    raster.Maß5 = 285.0F;
    raster.Maß6 = 4410.0F;
    raster.Maß7 = 1305.0F;
    return raster;
}

} // namespace

TastenRaster tastenRaster(std::int16_t aufloesung)
{
    return aufloesung == 800 ? kleinesRaster() : großesRaster();
}

} // namespace servopanel::servo_menu
