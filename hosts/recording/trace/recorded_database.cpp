#include "recording/trace/recorded_database.h"

#include "basic/error.h"
#include "recording/trace/value_text.h"

#include <optional>
#include <string>
#include <utility>

namespace servopanel::recording {

namespace {

class RecordedRows : public platform::RecordSet {
public:
    RecordedRows(std::unique_ptr<platform::RecordSet> inner, const PathNames& paths, TraceSink& sink)
        : inner_{std::move(inner)}
        , paths_{paths}
        , sink_{sink}
    {
    }
    bool atEnd() override { return inner_->atEnd(); }
    void moveNext() override { inner_->moveNext(); }
    basic::Variant field(std::string_view column) override { return inner_->field(column); }
    basic::Variant bookmark() override
    {
        tell("db row ");
        return inner_->bookmark();
    }
    void moveTo(const basic::Variant& bookmark) override { inner_->moveTo(bookmark); }
    void edit() override { inner_->edit(); }
    void setField(std::string_view column, const basic::Variant& value) override
    {
        inner_->setField(column, value);
    }
    void update() override
    {
        tell("db update ");
        inner_->update();
    }

private:
    // Names the current row by its variable and element. Without a current row nothing is taken or changed.
    void tell(const std::string& what)
    {
        const std::optional<std::string> variable = fieldText("var_name");
        if (variable) sink_.line(what + *variable + " " + fieldText("offset_or_bitno").value_or("?"));
    }
    std::optional<std::string> fieldText(std::string_view column)
    {
        try {
            const basic::Variant value = inner_->field(column);
            const auto* text = value.get<std::string>();
            return text ? *text : valueText(value, paths_);
        } catch (const basic::Error&) {
            return std::nullopt;
        }
    }

    std::unique_ptr<platform::RecordSet> inner_;
    const PathNames& paths_;
    TraceSink& sink_;
};

class RecordedDatabase : public platform::Database {
public:
    RecordedDatabase(std::unique_ptr<platform::Database> inner, const PathNames& paths, TraceSink& sink)
        : inner_{std::move(inner)}
        , paths_{paths}
        , sink_{sink}
    {
    }
    std::unique_ptr<platform::RecordSet> openRecordSet(std::string_view query) override
    {
        return std::make_unique<RecordedRows>(inner_->openRecordSet(query), paths_, sink_);
    }
    void close() override
    {
        sink_.line("db close");
        inner_->close();
    }

private:
    std::unique_ptr<platform::Database> inner_;
    const PathNames& paths_;
    TraceSink& sink_;
};

} // namespace

std::unique_ptr<platform::Database> RecordedDBEngine::open(std::string_view path)
{
    const std::string line = "db open " + paths_.name(path);
    TraceSink::Slot slot = sink_.open(line + " failed");
    auto database = std::make_unique<RecordedDatabase>(inner_->open(path), paths_, sink_);
    slot.complete(line);
    return database;
}

} // namespace servopanel::recording
