#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace servopanel::machine {

// What is wrong with the signs of a JSON text, for somebody who wrote it by hand.
struct JsonMistake {
    std::size_t at = 0; // where the mistake is, which may be before the place at which a parser stops
    std::string reason;
};

// read: how much of the text the parser had read, with the part that it could not take; message: its own words.
JsonMistake jsonMistake(std::string_view text, std::size_t read, std::string_view message);

} // namespace servopanel::machine
