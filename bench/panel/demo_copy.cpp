#include "demo_copy.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace servopanel::bench {

namespace {

// In the list of the first machine.
void beginOnFirstServo(const std::filesystem::path& file)
{
    std::ifstream in{file};
    std::string text{std::istreambuf_iterator<char>{in}, {}};
    in.close();
    const std::string inMenu = "\"Ch-1.intern<.servo_zeiger>\": 0";
    const std::size_t at = text.find(inMenu);
    if (at == std::string::npos) throw std::runtime_error{"the project does not begin in the menu"};
    text[at + inMenu.size() - 1] = '1';
    std::ofstream{file} << text;
}

class Project {
public:
    explicit Project(DemoCopy::Begins begins)
    {
        std::filesystem::copy(DEMO_PROJECT, folder(), std::filesystem::copy_options::recursive);
        if (begins == DemoCopy::Begins::OnPage) beginOnFirstServo(folder() / "project.json");
    }
    const std::filesystem::path& folder() const { return folder_.path(); }

private:
    tests::TemporaryFolder folder_;
};

const std::filesystem::path& projectThat(DemoCopy::Begins begins)
{
    static const Project menu{DemoCopy::Begins::InMenu};
    static const Project page{DemoCopy::Begins::OnPage};
    return begins == DemoCopy::Begins::InMenu ? menu.folder() : page.folder();
}

} // namespace

DemoCopy::DemoCopy(Begins begins)
    : project_{projectThat(begins)}
{
}

void DemoCopy::forgetScaledPictures() const
{
    for (const auto& entry : std::filesystem::directory_iterator{temporary()})
        std::filesystem::remove_all(entry.path());
}

} // namespace servopanel::bench
