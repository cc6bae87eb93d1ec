#pragma once

#include "portable/temporary_folder.h"

#include <filesystem>

namespace servopanel::bench {

// A copy of the demonstration project, one for all because nothing that is measured writes into it, and folders of its
// own for the scaled pictures and for what the panel records.
class DemoCopy {
public:
    enum class Begins { InMenu, OnPage };
    explicit DemoCopy(Begins begins = Begins::InMenu);

    const std::filesystem::path& project() const { return project_; }
    const std::filesystem::path& temporary() const { return temporary_.path(); }
    const std::filesystem::path& records() const { return records_.path(); }
    // As on the first start of all.
    void forgetScaledPictures() const;

private:
    const std::filesystem::path& project_;
    tests::TemporaryFolder temporary_;
    tests::TemporaryFolder records_;
};

} // namespace servopanel::bench
