// choices.json, what the panel remembers of its operator, as it lies on the disk when the panel starts.
#include "fuzz/fuzz.h"
#include "panel/runtime/remembered_choices.h"
#include "portable/temporary_folder.h"

#include <fstream>

namespace servopanel::fuzz {

void feed(std::string_view bytes)
{
    static const tests::TemporaryFolder folder;
    std::ofstream{folder.path() / "choices.json", std::ios::binary | std::ios::trunc} << bytes;
    panel::RememberedChoices remembered{folder.path(), "/srv/carton"};
    const auto choices = remembered.load();
    if (choices && !remembered.problem().empty()) broken("choices that were read are no problem");
}

} // namespace servopanel::fuzz
