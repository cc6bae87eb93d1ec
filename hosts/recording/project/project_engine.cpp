#include "recording/project/project_engine.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "recording/memory/memory_disk.h"

#include <optional>
#include <utility>

namespace servopanel::recording {

namespace {

constexpr std::int32_t noEdit = 3020;
constexpr std::int32_t updateFailed = 3260;

std::string keyOf(const basic::Variant& bookmark)
{
    std::string key;
    const auto* bytes = bookmark.get<basic::Array>();
    if (bytes == nullptr) return key;
    for (const basic::Variant& byte : bytes->elements)
        key += static_cast<char>(basic::toByte(byte));
    return key;
}

class ProjectRows : public platform::RecordSet {
public:
    ProjectRows(
        std::unique_ptr<platform::RecordSet> inner, std::shared_ptr<ChangedRows> changed, Failures& failures)
        : inner_{std::move(inner)}
        , changed_{std::move(changed)}
        , failures_{failures}
    {
    }

    bool atEnd() override { return inner_->atEnd(); }
    void moveNext() override
    {
        edited_.reset();
        inner_->moveNext();
    }
    basic::Variant field(std::string_view column) override
    {
        basic::Variant stored = inner_->field(column);
        const auto row = changed_->find(keyOf(inner_->bookmark()));
        if (row == changed_->end()) return stored;
        const auto value = row->second.find(basic::upperCase(column));
        return value == row->second.end() ? stored : value->second;
    }
    basic::Variant bookmark() override { return inner_->bookmark(); }
    void moveTo(const basic::Variant& bookmark) override
    {
        edited_.reset();
        inner_->moveTo(bookmark);
    }
    void edit() override
    {
        inner_->bookmark(); // fails without a current row
        edited_.emplace();
    }
    void setField(std::string_view column, const basic::Variant& value) override
    {
        inner_->field(column); // fails for a column that is not there
        requireEdit().insert_or_assign(basic::upperCase(column), value);
    }
    void update() override
    {
        const ChangedColumns columns = requireEdit();
        edited_.reset();
        if (failures_.take(FailureKind::UpdateRow, {})) raiseError(updateFailed, "The row cannot be updated");
        ChangedColumns& row = (*changed_)[keyOf(inner_->bookmark())];
        for (const auto& [column, value] : columns)
            row.insert_or_assign(column, value);
    }

private:
    ChangedColumns& requireEdit()
    {
        if (!edited_) raiseError(noEdit, "No row is being edited");
        return *edited_;
    }

    std::unique_ptr<platform::RecordSet> inner_;
    std::shared_ptr<ChangedRows> changed_;
    Failures& failures_;
    std::optional<ChangedColumns> edited_;
};

class ProjectDatabase : public platform::Database {
public:
    ProjectDatabase(
        std::unique_ptr<platform::Database> inner, std::shared_ptr<ChangedRows> changed, Failures& failures)
        : inner_{std::move(inner)}
        , changed_{std::move(changed)}
        , failures_{failures}
    {
    }
    std::unique_ptr<platform::RecordSet> openRecordSet(std::string_view query) override
    {
        return std::make_unique<ProjectRows>(inner_->openRecordSet(query), changed_, failures_);
    }
    void close() override { inner_->close(); }

private:
    std::unique_ptr<platform::Database> inner_;
    std::shared_ptr<ChangedRows> changed_;
    Failures& failures_;
};

} // namespace

std::unique_ptr<platform::Database> ProjectEngine::open(std::string_view path)
{
    std::unique_ptr<platform::Database> database = inner_->open(path);
    std::shared_ptr<ChangedRows>& changed = changed_[normalisedPath(path)];
    if (!changed) changed = std::make_shared<ChangedRows>();
    return std::make_unique<ProjectDatabase>(std::move(database), changed, failures_);
}

} // namespace servopanel::recording
