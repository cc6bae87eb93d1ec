#pragma once

#include "machine/problem.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace servopanel::machine {

using Json = nlohmann::ordered_json;

// Reads JSON as far as it goes. Where it breaks off, the problem names the line; of the members of the top level what
// was complete by then is kept, so that one missing comma does not take the whole project away. A member that is given
// twice is a problem too, the last one counts; what is nested absurdly deep is one and left out. Null for nothing at all.
Json readJson(std::string_view text, const std::string& file, std::vector<Problem>& problems);

} // namespace servopanel::machine
