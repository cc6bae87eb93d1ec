#pragma once

#include <string_view>

namespace servopanel::servo_page {

// The two parts of a text "caption;unit" as its host delivers it, blanks included.
struct TextTeile {
    std::string_view Beschriftung;
    std::string_view Einheit; // empty where nothing separates it
};

// A semicolon separates them, or the wide one of Chinese and Japanese texts. On the text's first place it separates
// nothing. The parts are views of the text.
TextTeile textTeile(std::string_view text);

} // namespace servopanel::servo_page
