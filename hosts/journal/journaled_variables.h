#pragma once

#include "journal/entry.h"
#include "journal/journal_file.h"
#include "platform/process_var_access.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::journal {

std::int64_t systemTime(); // ms since 1970, UTC

// What a journal asks of the panel around it, at each write.
struct JournalContext {
    std::function<std::string()> panel; // its name
    std::function<std::int16_t()> level; // the user's
    // Takes why the journal cannot be kept when it begins to fail, and not again before it has worked in between.
    std::function<void(const std::string&)> trouble;
    std::function<std::int64_t()> now = systemTime;
};

// Keeps a journal of all writes to a machine's variables. What is written is in the journal before it is sent, how it ended
// afterwards. A journal that fails prevents no write. Reads and what belongs to the panel itself just pass.
class JournaledVariables : public platform::ProcessVarAccess {
public:
    // The file lives at least as long.
    JournaledVariables(
        std::shared_ptr<platform::ProcessVarAccess> inner, JournalFile& file, JournalContext context);

    // Whether writes can be kept is told at once, and not only with the first of them.
    void open() noexcept;

    basic::Variant ReadValue(std::string_view name) override;
    void WriteValue(std::string_view name, const basic::Variant& value) override;

private:
    // False when the write will not be in the journal: its end must not be there either.
    bool begin(std::string_view name, const basic::Variant& value) noexcept;
    void end(std::string_view name, Result result, std::int32_t number, std::string_view text) noexcept;
    Entry common(std::string_view name);
    void append(const std::vector<std::string>& lines);
    void tell(std::string_view problem) noexcept;

    std::shared_ptr<platform::ProcessVarAccess> inner_;
    JournalFile& file_;
    JournalContext context_;
    // What was read since the latest write of each variable: what somebody saw before changing it.
    std::map<std::string, basic::Variant, std::less<>> read_;
    std::int64_t write_ = 0;
    std::int64_t begun_ = 0; // time of the present write
    bool troubled_ = false;
};

} // namespace servopanel::journal
