// Writes a database of definitions in each form into a folder, for the fuzzer to begin with:
//
//     jet_seeds FOLDER
#include "jet/sample_definitions.h"

#include <cstddef>
#include <cstdio>
#include <exception>
#include <filesystem>

int main(int count, char** arguments)
try {
    using namespace servopanel::jet;
    if (count != 2) return 2;
    constexpr std::size_t largest = 65'536; // bytes, what the fuzzer feeds at most
    const std::filesystem::path folder = arguments[1];
    std::filesystem::create_directories(folder);
    for (const NewDatabaseOptions& form : testing::allForms())
        // A few rows, and so many that they lie on several pages.
        for (const std::size_t rows : {std::size_t{3}, std::size_t{60}}) {
            const Bytes database = newDefinitionDatabase(testing::sampleRows(rows), form);
            const std::string name = testing::nameOf(form) + "_" + std::to_string(rows) + ".mdb";
            if (database.size() > largest) {
                std::fprintf(stderr, "jet_seeds: %s has %zu bytes\n", name.c_str(), database.size());
                return 1;
            }
            testing::writeFile(folder / name, database);
        }
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "jet_seeds: %s\n", error.what());
    return 1;
}
