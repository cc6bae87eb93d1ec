#pragma once

#include "machine/json_text.h"
#include "machine/problem.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace servopanel::machine {

// Takes the members of one JSON object. Whatever is missing, of the wrong type or out of range becomes a problem that
// names the member; its value is then nothing. Members that nobody asked for are reported by finish, they are mostly
// misspelt.
class JsonObject {
public:
    // A JSON value that is no object is a problem, and has no members.
    JsonObject(const Json& json, const std::string& file, std::string path, std::vector<Problem>& problems);

    enum class Need { Required, Optional };

    std::optional<double> number(const char* member, Need need,
        double least = std::numeric_limits<double>::lowest(),
        double most = std::numeric_limits<double>::max());
    std::optional<std::int64_t> whole(const char* member, Need need, std::int64_t least, std::int64_t most);
    std::optional<std::string> text(const char* member, Need need);
    std::optional<bool> boolean(const char* member, Need need);
    // The member itself, nullptr when there is none or it is something else; any takes whatever there is.
    const Json* any(const char* member, Need need) { return take(member, need); }
    const Json* array(const char* member, Need need);
    const Json* object(const char* member, Need need);

    // A problem of this object or of one of its members.
    void problem(const std::string& member, const std::string& reason);
    std::string pathOf(const std::string& member) const;
    const std::string& path() const { return path_; }
    void finish();
    // Nobody can say which members belong here: finish reports none.
    void takeRest();

    // Whether anything was wrong so far; unknown members do not count.
    bool failed() const { return failed_; }

private:
    const Json* take(const char* member, Need need);

    const Json& json_;
    const std::string& file_;
    std::string path_;
    std::vector<Problem>& problems_;
    std::set<std::string> taken_;
    bool failed_ = false;
};

} // namespace servopanel::machine
