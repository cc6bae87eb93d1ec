#pragma once

#include <QString>

#include <string_view>

namespace servopanel::panel {

// A text in UTF-8 as Qt has it.
inline QString toQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace servopanel::panel
