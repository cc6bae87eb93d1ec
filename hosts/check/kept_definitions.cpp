#include "check/kept_definitions.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <utility>
#include <variant>
#include <vector>

namespace servopanel::check {

namespace {

constexpr std::array<std::string_view, 8> columns{
    "MACHINE_TYPE", "VAR_NAME", "OFFSET_OR_BITNO", "ABS_MIN", "ABS_MAX", "MIN", "MAX", "PASS"};

// A value, or why it cannot be had.
using Answer = std::variant<basic::Variant, basic::Error>;

template <class Ask>
Answer answerOf(const Ask& ask)
{
    try {
        return ask();
    } catch (const basic::Error& error) {
        return error;
    }
}

basic::Variant valueOf(const Answer& answer)
{
    if (const auto* error = std::get_if<basic::Error>(&answer)) throw basic::Error{*error};
    return std::get<basic::Variant>(answer);
}

bool isSame(std::string_view capitals, std::string_view name)
{
    return capitals.size() == name.size()
        && std::equal(capitals.begin(), capitals.end(), name.begin(), [](char capital, char letter) {
               return capital
                   == (letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter);
           });
}

} // namespace

struct KeptDefinitions::Table {
    std::vector<std::array<Answer, columns.size()>> rows;
};

class KeptDefinitions::Rows : public platform::RecordSet {
public:
    explicit Rows(std::shared_ptr<const Table> table)
        : table_{std::move(table)}
    {
    }
    bool atEnd() override { return position_ >= table_->rows.size(); }
    void moveNext() override { position_ += atEnd() ? 0 : 1; }
    basic::Variant field(std::string_view column) override
    {
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (isSame(columns[i], column)) return valueOf(current()[i]);
        basic::raise(basic::ErrorNumber::NoSuchMember, column);
    }
    basic::Variant bookmark() override
    {
        static_cast<void>(current());
        return basic::Variant{static_cast<std::int32_t>(position_)};
    }
    void moveTo(const basic::Variant& bookmark) override
    {
        position_ = static_cast<std::size_t>(basic::toInt32(bookmark));
        static_cast<void>(current());
    }
    void edit() override { refuse(); }
    void setField(std::string_view, const basic::Variant&) override { refuse(); }
    void update() override { refuse(); }

private:
    const std::array<Answer, columns.size()>& current() const
    {
        if (position_ >= table_->rows.size())
            basic::raise(basic::ErrorNumber::InvalidProcedureCall, "no current row");
        return table_->rows[position_];
    }
    [[noreturn]] static void refuse()
    {
        basic::raise(basic::ErrorNumber::InvalidProcedureCall, "a check changes nothing");
    }

    std::shared_ptr<const Table> table_;
    std::size_t position_ = 0;
};

// What came of opening a file, and of each query.
class KeptDefinitions::File {
public:
    File(std::string_view path, platform::DBEngine& engine)
    {
        try {
            database_ = engine.open(path);
        } catch (const basic::Error& error) {
            failure_ = std::make_unique<basic::Error>(error);
        }
    }
    void check() const
    {
        if (failure_) throw basic::Error{*failure_};
    }
    std::shared_ptr<const Table> table(std::string_view query)
    {
        const auto known = tables_.find(query);
        if (known != tables_.end()) return known->second;
        auto table = std::make_shared<Table>();
        const std::unique_ptr<platform::RecordSet> rows = database_->openRecordSet(query);
        for (; !rows->atEnd(); rows->moveNext()) {
            auto& row = table->rows.emplace_back();
            for (std::size_t i = 0; i < columns.size(); ++i)
                row[i] = answerOf([&] { return rows->field(columns[i]); });
        }
        return tables_[std::string{query}] = std::move(table);
    }

private:
    std::unique_ptr<platform::Database> database_;
    std::unique_ptr<basic::Error> failure_;
    std::map<std::string, std::shared_ptr<const Table>, std::less<>> tables_;
};

class KeptDefinitions::Opened : public platform::Database {
public:
    explicit Opened(std::shared_ptr<File> file)
        : file_{std::move(file)}
    {
        file_->check();
    }
    std::unique_ptr<platform::RecordSet> openRecordSet(std::string_view query) override
    {
        return std::make_unique<Rows>(file_->table(query));
    }
    void close() override { }

private:
    std::shared_ptr<File> file_;
};

std::unique_ptr<platform::Database> KeptDefinitions::open(std::string_view path)
{
    auto known = files_.find(path);
    if (known == files_.end())
        known = files_.emplace(std::string{path}, std::make_shared<File>(path, engine_)).first;
    return std::make_unique<Opened>(known->second);
}

} // namespace servopanel::check
