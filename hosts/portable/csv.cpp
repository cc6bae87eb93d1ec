#include "portable/csv.h"

#include "basic/error.h"
#include "portable/text_decoding.h"

namespace servopanel::portable {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

[[noreturn]] void refuse(std::size_t line, std::string_view why)
{
    std::string description{"line "};
    description.append(std::to_string(line)).append(": ").append(why);
    throw basic::Error{
        static_cast<std::int32_t>(basic::ErrorNumber::TypeMismatch), "CSV file", std::move(description)};
}

char separatorOf(std::string_view text)
{
    const std::size_t at = text.substr(0, text.find('\n')).find_first_of(",;");
    return at == std::string_view::npos ? ',' : text[at];
}

class Parser {
public:
    explicit Parser(std::string_view text)
        : text_{text}
        , separator_{separatorOf(text)}
    {
    }

    std::vector<CsvLine> lines()
    {
        std::vector<CsvLine> lines;
        while (at_ < text_.size()) {
            CsvLine line = this->line();
            const bool isEmpty = line.cells.size() == 1 && !line.cells.front();
            if (!isEmpty) lines.push_back(std::move(line));
        }
        return lines;
    }

private:
    CsvLine line()
    {
        CsvLine line{number_, {}};
        while (true) {
            line.cells.push_back(peek() == '"' ? quoted() : plain());
            if (peek() != separator_) break;
            ++at_;
        }
        if (peek() == '\r') ++at_;
        if (at_ < text_.size() && text_[at_] != '\n')
            refuse(number_, "there is something behind a closing quote");
        ++at_;
        ++number_;
        return line;
    }

    CsvCell plain()
    {
        const std::size_t start = at_;
        while (at_ < text_.size() && text_[at_] != separator_ && text_[at_] != '\n' && !atLineEnd())
            ++at_;
        const std::string_view cell = text_.substr(start, at_ - start);
        if (cell.empty()) return std::nullopt;
        return std::string{cell};
    }

    CsvCell quoted()
    {
        const std::size_t start = number_;
        std::string cell;
        for (++at_; at_ < text_.size(); ++at_) {
            if (text_[at_] == '"') {
                ++at_;
                if (peek() != '"') return cell;
            }
            if (text_[at_] == '\n') ++number_;
            cell += text_[at_];
        }
        refuse(start, "a quote is not closed");
    }

    bool atLineEnd() const
    {
        return text_[at_] == '\r' && (at_ + 1 == text_.size() || text_[at_ + 1] == '\n');
    }
    char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }

    std::string_view text_;
    char separator_;
    std::size_t at_ = 0;
    std::size_t number_ = 1;
};

// No character of several bytes has a line feed in it, so each line can be looked at by itself.
void requireUtf8(std::string_view text)
{
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        if (!isUtf8(text.substr(0, end))) refuse(number, "it is not UTF-8");
        if (end == std::string_view::npos) return;
        text.remove_prefix(end + 1);
    }
}

// What begins like a formula behind any number of apostrophes.
bool isFormula(std::string_view text)
{
    const std::size_t at = text.find_first_not_of('\'');
    return at != std::string_view::npos
        && std::string_view{"=+-@\t\r\n"}.find(text[at]) != std::string_view::npos;
}

} // namespace

std::vector<CsvLine> parseCsv(std::string_view text)
{
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark) text.remove_prefix(byteOrderMark.size());
    requireUtf8(text);
    return Parser{text}.lines();
}

std::string csvLine(const std::vector<CsvCell>& cells)
{
    std::string line;
    for (const CsvCell& cell : cells) {
        if (&cell != &cells.front()) line += ',';
        if (!cell) continue;
        if (!cell->empty() && cell->find_first_of(",;\"\r\n") == std::string::npos) {
            line += *cell;
            continue;
        }
        line += '"';
        for (const char c : *cell) {
            if (c == '"') line += c;
            line += c;
        }
        line += '"';
    }
    return line + '\n';
}

std::string withoutFormula(std::string_view text) { return (isFormula(text) ? "'" : "") + std::string{text}; }

std::string withFormula(std::string_view text)
{
    if (isFormula(text) && text.front() == '\'') text.remove_prefix(1);
    return std::string{text};
}

std::string shownText(std::string_view text)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string shown;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n')
            shown += "\\n";
        else if (c == '\r')
            shown += "\\r";
        else if (c == '\t')
            shown += "\\t";
        else if (byte < 0x20 || byte == 0x7F)
            shown.append("\\x").append(1, digits[byte / 16]).append(1, digits[byte % 16]);
        else
            shown += c;
    }
    return shown;
}

} // namespace servopanel::portable
