#include "panel/form/input_caption.h"

namespace servopanel::panel {

QString inputCaption(ControlHost& page, std::string_view name, std::int16_t index)
{
    Child* const child = page.find(name, index);
    const QString caption = child == nullptr ? QString{} : page.beside(*child).caption;
    return caption.isEmpty() ? u'#' + QString::number(index) : caption;
}

} // namespace servopanel::panel
