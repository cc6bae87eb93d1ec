// Parameter sets, the files of servo-params.
#include "basic/error.h"
#include "fuzz/fuzz.h"
#include "params/set_file.h"

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    params::ParameterSet set;
    try {
        set = params::fromText(bytes);
    } catch (const basic::Error& error) {
        if (!error.description.starts_with("line ") && error.description.find("column") == std::string::npos)
            broken("what is refused is named with its line");
        return;
    }
    const std::string written = params::toText(set);
    if (params::toText(params::fromText(written)) != written) broken("a set comes back as it was written");
}

} // namespace servopanel::fuzz
