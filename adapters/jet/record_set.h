#pragma once

#include "jet/bookmark.h"
#include "jet/definition_file.h"
#include "jet/jet_error.h"
#include "platform/db_engine.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::jet {

// A database between open and close.
struct OpenDatabase {
    std::string name; // as the caller spelt it, for error texts
    std::optional<DefinitionFile> file; // nothing after close

    DefinitionFile& usable()
    {
        if (!file) raise(JetError::DatabaseClosed, "the database is closed");
        return *file;
    }

    // Puts the name of the file into the errors of an action.
    template <class F>
    auto named(F action)
    {
        try {
            return action();
        } catch (const basic::Error& error) {
            throw jet::named(error, name);
        }
    }
};

class DefinitionRecordSet : public platform::RecordSet {
public:
    DefinitionRecordSet(std::shared_ptr<OpenDatabase> database, Table table);

    bool atEnd() override;
    void moveNext() override;
    basic::Variant field(std::string_view column) override;
    basic::Variant bookmark() override;
    void moveTo(const basic::Variant& bookmark) override;
    void edit() override;
    void setField(std::string_view column, const basic::Variant& value) override;
    void update() override;

private:
    // Error NoCurrentRow when there is none.
    std::size_t current() const;
    void refuseOtherElement(const std::vector<DefinitionFile::NewValue>& values) const;

    std::shared_ptr<OpenDatabase> database_;
    Table table_;
    std::size_t position_ = 0; // the number of rows when there is no current one
    std::optional<Bookmark> reachedBy_; // the current row, when a bookmark led to it
    std::optional<std::vector<DefinitionFile::NewValue>> edited_;
};

} // namespace servopanel::jet
