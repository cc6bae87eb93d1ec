#include "journal/journal_reader.h"

#include "basic/error.h"
#include "journal/journal_file.h"
#include "portable/file_error.h"
#include "portable/text_decoding.h"
#include "portable/text_reading.h"

#include <map>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace servopanel::journal {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t largestFile = 512'000'000; // bytes
constexpr std::size_t longestLine = 1'000'000; // bytes; the longest that a panel writes is far shorter
constexpr int mostFiles = 99; // put aside

// The files that are there, the oldest first, with what tells whether they have been renamed.
struct FoundFile {
    fs::path path;
    ino_t inode = 0;
    friend bool operator==(const FoundFile&, const FoundFile&) = default;
};
std::vector<FoundFile> filesIn(const fs::path& folder)
{
    std::vector<FoundFile> files;
    for (int number = mostFiles; number >= 0; --number) {
        const fs::path path = journalFile(folder, number);
        struct stat status { };
        if (::stat(path.c_str(), &status) == 0) files.push_back({path, status.st_ino});
    }
    return files;
}

class Reader {
public:
    void read(const fs::path& path)
    {
        file_ = path.string();
        number_ = 0;
        portable::FileBytes content;
        try {
            content = portable::readFile(path, file_, largestFile);
        } catch (const basic::Error& error) {
            content.failure = error;
        }
        if (content.failure) {
            journal_.problems.push_back({path.filename().string(), "", content.failure->description});
            journal_.isWhole = false;
        }
        lines(content.bytes);
    }

    Journal take()
    {
        for (Entry& entry : journal_.entries) {
            if (entry.result != Result::Open) continue;
            entry.result = Result::Unknown;
            entry.text = "the panel ended before the answer";
        }
        return std::move(journal_);
    }

private:
    void lines(std::string_view bytes)
    {
        while (!bytes.empty()) {
            ++number_;
            const std::size_t end = bytes.find('\n');
            line(bytes.substr(0, end), end != std::string_view::npos);
            bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        }
    }

    void line(std::string_view text, bool hasEnd)
    {
        if (text.size() > longestLine) return problem("is too long");
        if (!portable::isUtf8(text)) return problem("is not UTF-8");
        Line line = readLine(text);
        if (const auto* const reason = std::get_if<std::string>(&line))
            return problem(hasEnd ? *reason : "is cut off");
        if (auto* const entry = std::get_if<Entry>(&line)) return add(std::move(*entry));
        if (const auto* const gap = std::get_if<Gap>(&line))
            return problem(std::to_string(gap->lines)
                               .append(" lines are missing here, because the journal could not be written"));
        finish(std::get<Ending>(line));
    }

    void add(Entry entry)
    {
        open_[{entry.write, entry.time}].push_back(journal_.entries.size());
        journal_.entries.push_back(std::move(entry));
    }

    void finish(const Ending& ending)
    {
        const auto open = open_.find({ending.write, ending.begun});
        if (open == open_.end()) {
            // The beginning of the oldest file may have gone with the file before.
            if (!journal_.entries.empty()) problem("is the end of a write that is not here");
            return;
        }
        for (const std::size_t index : open->second) {
            Entry& entry = journal_.entries[index];
            entry.result = ending.result;
            entry.number = ending.number;
            entry.text = ending.text;
        }
        open_.erase(open);
    }

    void problem(std::string reason)
    {
        journal_.problems.push_back({fs::path{file_}.filename().string(),
            std::string{"line "}.append(std::to_string(number_)), std::move(reason)});
    }

    Journal journal_;
    std::map<std::pair<std::int64_t, std::int64_t>, std::vector<std::size_t>> open_;
    std::string file_;
    int number_ = 0; // of the line
};

} // namespace

Journal readJournal(const fs::path& folder)
{
    constexpr int mostTurns = 3;
    for (int turn = 1;; ++turn) {
        const std::vector<FoundFile> files = filesIn(folder);
        if (files.empty())
            portable::raiseFileError(
                portable::FileError::FileNotFound, folder.string(), "there is no journal in this folder");
        Reader reader;
        for (const FoundFile& file : files)
            reader.read(file.path);
        // A file that was put aside meanwhile would be missing, or there twice.
        if (turn == mostTurns || filesIn(folder) == files) return reader.take();
    }
}

} // namespace servopanel::journal
