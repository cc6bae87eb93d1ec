#include "jet/jet_error.h"

#include <utility>

namespace servopanel::jet {

namespace {

constexpr std::string_view source = "Database";

} // namespace

void raise(JetError number, std::string description)
{
    throw basic::Error{static_cast<std::int32_t>(number), std::string{source}, std::move(description)};
}

void raiseDamaged(std::string_view how)
{
    raise(JetError::Damaged, "the database is damaged: " + std::string{how});
}

basic::Error named(const basic::Error& error, std::string_view file)
{
    return {error.number, std::string{source}, "'" + std::string{file} + "': " + error.description};
}

} // namespace servopanel::jet
