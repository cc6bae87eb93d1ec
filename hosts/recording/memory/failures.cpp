#include "recording/memory/failures.h"

#include "basic/error.h"

namespace servopanel::recording {

void Failures::arrange(FailureKind kind, std::string_view name, std::int32_t times)
{
    remaining_.insert_or_assign({kind, std::string{name}}, times);
}

bool Failures::take(FailureKind kind, std::string_view name)
{
    const auto arranged = remaining_.find({kind, std::string{name}});
    if (arranged == remaining_.end() || arranged->second == 0) return false;
    if (arranged->second != always) --arranged->second;
    return true;
}

void raiseError(std::int32_t number, const std::string& description)
{
    throw basic::Error{number, {}, description};
}

} // namespace servopanel::recording
