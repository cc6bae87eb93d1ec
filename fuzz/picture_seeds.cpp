// Writes a picture of each kind into a folder, for the fuzzer to begin with:
//
//     picture_seeds FOLDER
#include "panel/sample_pictures.h"

#include <QCoreApplication>

#include <cstdio>
#include <filesystem>
#include <fstream>

int main(int count, char** arguments)
{
    if (count != 2) return 2;
    // Plugins read JPEG.
    const QCoreApplication application{count, arguments};
    const std::filesystem::path folder = arguments[1];
    std::filesystem::create_directories(folder);
    for (const servopanel::testing::NamedPicture& picture : servopanel::testing::soundPictures()) {
        std::ofstream out{folder / picture.name, std::ios::binary};
        out.write(picture.data.data(), picture.data.size());
        if (picture.data.isEmpty() || !out.flush()) {
            std::fprintf(stderr, "picture_seeds: '%s' cannot be written\n", picture.name.c_str());
            return 1;
        }
    }
    return 0;
}
