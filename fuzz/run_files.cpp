// Feeds a target with files, and with some shortened and some damaged forms of each, without a fuzzer:
//
//     NAME FOLDER-OR-FILE...
//
// Ends with 0 when the target stood it, with 2 when there was nothing to feed or a file cannot be read.
#include "fuzz/fuzz.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

std::vector<std::filesystem::path> filesOf(const std::filesystem::path& place)
{
    if (!std::filesystem::is_directory(place)) return {place};
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator{place})
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

std::string bytesOf(const std::filesystem::path& file)
{
    std::ifstream in{file, std::ios::binary};
    if (!in) {
        std::printf("cannot be read\n");
        std::exit(2);
    }
    return {std::istreambuf_iterator<char>{in}, {}};
}

// Cut off somewhere, and with bytes changed; the same ones each time.
void feedDamaged(const std::string& bytes)
{
    constexpr int forms = 8;
    std::minstd_rand random{static_cast<std::minstd_rand::result_type>(bytes.size() + 1)};
    for (int form = 0; form < forms && !bytes.empty(); ++form) {
        servopanel::fuzz::feed(std::string_view{bytes}.substr(0, random() % bytes.size()));
        std::string changed = bytes;
        for (int i = 0; i <= form; ++i)
            changed[random() % changed.size()] = static_cast<char>(random());
        servopanel::fuzz::feed(changed);
    }
}

} // namespace

int main(int count, char** arguments)
{
    int fed = 0;
    for (int i = 1; i < count; ++i)
        for (const std::filesystem::path& file : filesOf(arguments[i])) {
            std::printf("%s\n", file.c_str());
            std::fflush(stdout);
            const std::string bytes = bytesOf(file);
            servopanel::fuzz::feed(bytes);
            feedDamaged(bytes);
            ++fed;
        }
    return fed == 0 ? 2 : 0;
}
