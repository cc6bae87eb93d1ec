#include "shell/form.h"

namespace servopanel::shell {

using platform::FirstValue;
using platform::FormChild;
namespace classes = platform::classes;

namespace {

constexpr FirstValue seite[]{{"Visible", false}, {"Width", 19200.0F}, {"Height", 15360.0F}};
constexpr FirstValue kopf[]{{"Visible", true}, {"Width", 19200.0F}, {"Height", 1560.0F}};

constexpr FormChild kinder[]{
    {{"ServoMenu"}, classes::ServoMenu, {}, seite},
    {{"ServoMain"}, classes::ServoMain, {}, seite},
    {{"Header"}, classes::Header, {}, kopf},
};

} // namespace

platform::FormData servoForm() { return kinder; }

} // namespace servopanel::shell
