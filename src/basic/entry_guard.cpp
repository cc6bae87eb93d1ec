#include "basic/entry_guard.h"

#include <exception>
#include <string>

namespace servopanel::basic {

namespace {

void reportInternal(ErrorSink& sink, std::string_view entry, const char* what) noexcept
{
    try {
        sink.report(Error{static_cast<std::int32_t>(ErrorNumber::InternalError), {}, what}, entry);
    } catch (...) {
        // Out of memory while describing the failure: there is nothing left to describe it with.
    }
}

} // namespace

void guardEntry(ErrorSink& sink, std::string_view entry, FunctionRef<void()> body) noexcept
{
    try {
        body();
    } catch (const Error& error) {
        sink.report(error, entry);
    } catch (const std::exception& failure) {
        reportInternal(sink, entry, failure.what());
    } catch (...) {
        reportInternal(sink, entry, "Internal error");
    }
}

} // namespace servopanel::basic
