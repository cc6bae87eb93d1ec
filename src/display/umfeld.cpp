#include "display/umfeld.h"

#include "basic/conversions.h"

#include <memory>

namespace servopanel::display {

namespace {

// A host that hands out nothing at all is treated like one that failed.
template <class T>
T& vorhanden(const std::shared_ptr<T>& objekt)
{
    if (!objekt) basic::raise(basic::ErrorNumber::ObjectNotSet);
    return *objekt;
}

} // namespace

platform::ProcessVarAccess& processVarAccess(Umfeld& umfeld)
{
    std::shared_ptr<platform::ProcessVarAccess>& objekt = umfeld.zustand.ProcessVarAccess;
    if (!objekt) objekt = umfeld.platform.objects.createProcessVarAccess();
    return vorhanden(objekt);
}

platform::PathHelper& pathHelper(Umfeld& umfeld)
{
    std::shared_ptr<platform::PathHelper>& objekt = umfeld.zustand.PathHelper;
    if (!objekt) objekt = umfeld.platform.objects.createPathHelper();
    return vorhanden(objekt);
}

platform::DBEngine& dbEngine(Umfeld& umfeld)
{
    std::shared_ptr<platform::DBEngine>& objekt = umfeld.zustand.DBEngine;
    if (!objekt) objekt = umfeld.platform.objects.createDBEngine();
    return vorhanden(objekt);
}

basic::Variant ReadValue(Umfeld& umfeld, std::string_view name)
{
    return processVarAccess(umfeld).ReadValue(name);
}

void WriteValue(Umfeld& umfeld, std::string_view name, const basic::Variant& value)
{
    processVarAccess(umfeld).WriteValue(name, value);
}

bool mehrereMaschinen(Umfeld& umfeld)
{
    return basic::toDouble(ReadValue(umfeld, "parameter<.maschinenanzahl>")) > 1;
}

} // namespace servopanel::display
