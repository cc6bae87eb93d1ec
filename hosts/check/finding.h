#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace servopanel::check {

// Something that a project lacks, or that is wrong in it.
struct Finding {
    std::string file; // below the project's folder, with slashes; "*" stands for the resolution
    int line = 0; // 0: no particular one
    std::string what; // what is wrong, and what it means for the operator
    std::set<int> resolutions; // those of which it is true; empty when they do not matter
    std::string
        place; // where it was met: "the page of servo 5 of machine M1"; empty when that is nothing to tell
};

// Collects findings. Those that differ only in their line, resolution or place become one.
class Findings {
public:
    void add(Finding finding);
    void add(std::string file, int line, std::string what)
    {
        add({std::move(file), line, std::move(what), {}, {}});
    }
    // Whether anything was found in this file.
    bool has(const std::string& file) const;

    std::size_t count() const;
    std::size_t files() const;
    // From now on the findings of this file stand before those of all others.
    void tellFirst(std::string file) { first_ = std::move(file); }
    // One line each, sorted by file and line: "Texts/de.txt:12: what; also in lines 14 and 18".
    std::string text() const;

private:
    using Key = std::pair<std::string, std::string>; // file and what
    struct Entry {
        std::set<int> lines;
        std::set<int> resolutions;
        std::vector<std::string> places; // in the order in which they were met
    };
    static std::string lineOf(const Key& key, const Entry& entry);

    std::map<Key, Entry> entries_;
    std::string first_;
};

// "1", "1 and 2", "1, 2 and 3".
std::string listed(const std::vector<std::string>& words);

} // namespace servopanel::check
