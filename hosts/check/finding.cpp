#include "check/finding.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <tuple>
#include <utility>

namespace servopanel::check {

namespace {

// More findings in one file tell nobody anything: the file itself is wrong.
constexpr std::size_t mostInFile = 100;
constexpr std::size_t mostLines = 5;

std::vector<std::string> words(const std::set<int>& numbers)
{
    std::vector<std::string> result;
    for (const int number : numbers)
        result.push_back(std::to_string(number));
    return result;
}

// A name with "*" is a name of one file when it stands for one resolution only.
std::string shownFile(const std::string& file, const std::set<int>& resolutions)
{
    const std::size_t star = file.find('*');
    if (star == std::string::npos || resolutions.size() != 1) return file;
    std::string name = file;
    return name.replace(star, 1, std::to_string(*resolutions.begin()));
}

std::string furtherLines(const std::set<int>& lines)
{
    if (lines.size() < 2) return {};
    std::vector<std::string> others;
    for (auto line = std::next(lines.begin()); line != lines.end() && others.size() < mostLines; ++line)
        others.push_back(std::to_string(*line));
    if (const std::size_t rest = lines.size() - 1 - others.size(); rest > 0)
        others.push_back(std::to_string(rest) + " more");
    return (lines.size() == 2 ? "; also in line " : "; also in lines ") + listed(others);
}

std::string metAt(const std::vector<std::string>& places)
{
    if (places.empty()) return {};
    std::string text = " (" + places.front();
    if (places.size() == 2)
        text += ", and 1 more place";
    else if (places.size() > 2)
        text += ", and " + std::to_string(places.size() - 1) + " more places";
    return text + ')';
}

} // namespace

std::string listed(const std::vector<std::string>& words)
{
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (i > 0) text += i + 1 == words.size() ? " and " : ", ";
        text += words[i];
    }
    return text;
}

void Findings::add(Finding finding)
{
    Entry& entry = entries_[{std::move(finding.file), std::move(finding.what)}];
    if (finding.line > 0) entry.lines.insert(finding.line);
    entry.resolutions.merge(finding.resolutions);
    const bool isKnown =
        std::find(entry.places.begin(), entry.places.end(), finding.place) != entry.places.end();
    if (!finding.place.empty() && !isKnown) entry.places.push_back(std::move(finding.place));
}

bool Findings::has(const std::string& file) const
{
    const auto found = entries_.lower_bound({file, {}});
    return found != entries_.end() && found->first.first == file;
}

std::size_t Findings::count() const { return entries_.size(); }

std::size_t Findings::files() const
{
    std::set<std::string> names;
    for (const auto& [key, entry] : entries_)
        names.insert(key.first);
    return names.size();
}

std::string Findings::lineOf(const Key& key, const Entry& entry)
{
    const auto& [file, what] = key;
    std::string text = shownFile(file, entry.resolutions);
    if (!entry.lines.empty()) text += ':' + std::to_string(*entry.lines.begin());
    text += ": " + what;
    const bool isInName = file.find('*') != std::string::npos && entry.resolutions.size() == 1;
    if (!entry.resolutions.empty() && !isInName) text += "; at " + listed(words(entry.resolutions));
    text += furtherLines(entry.lines);
    text += metAt(entry.places);
    return text + '\n';
}

std::string Findings::text() const
{
    using Sorted = std::tuple<std::string, int, std::string>; // file, first line, text
    std::vector<Sorted> sorted;
    for (const auto& [key, entry] : entries_)
        sorted.emplace_back(key.first, entry.lines.empty() ? 0 : *entry.lines.begin(), lineOf(key, entry));
    std::sort(sorted.begin(), sorted.end());
    std::stable_partition(
        sorted.begin(), sorted.end(), [&](const Sorted& each) { return std::get<0>(each) == first_; });

    std::string text;
    for (std::size_t i = 0; i < sorted.size();) {
        const std::string& file = std::get<0>(sorted[i]);
        const auto end = static_cast<std::size_t>(
            std::find_if(sorted.begin() + static_cast<std::ptrdiff_t>(i), sorted.end(),
                [&](const Sorted& each) { return std::get<0>(each) != file; })
            - sorted.begin());
        const std::size_t shown = std::min(end, i + mostInFile);
        for (std::size_t j = i; j < shown; ++j)
            text += std::get<2>(sorted[j]);
        if (shown < end) text += file + ": " + std::to_string(end - shown) + " more findings in this file\n";
        i = end;
    }
    return text;
}

} // namespace servopanel::check
