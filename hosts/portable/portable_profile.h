#pragma once

#include "platform/profile.h"
#include "portable/path_mapping.h"

namespace servopanel::portable {

// Profile look-ups in files on the disk (see profile_text.h). Every look-up reads the file anew, so that an entry
// changed by an engineer counts at once. A file that cannot be read has no entries.
class PortableProfile : public platform::Profile {
public:
    // The mapping lives as long as this.
    explicit PortableProfile(const PathMapping& mapping)
        : mapping_{mapping}
    {
    }

    std::optional<std::string> text(
        std::string_view file, std::string_view section, std::string_view entry) override;

private:
    const PathMapping& mapping_;
};

} // namespace servopanel::portable
