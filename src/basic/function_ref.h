#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace servopanel::basic {

template <class Signature>
class FunctionRef;

// A reference to something callable that outlives the call it is passed to. It never allocates.
template <class Result, class... Args>
class FunctionRef<Result(Args...)> {
public:
    template <class F, class = std::enable_if_t<!std::is_same_v<std::remove_cvref_t<F>, FunctionRef>>>
    FunctionRef(F&& function) // NOLINT(google-explicit-constructor): stands in for the function at the call
        : object_{const_cast<void*>(static_cast<const void*>(std::addressof(function)))}
        , call_{[](void* object, Args... args) -> Result {
            return (*static_cast<std::remove_reference_t<F>*>(object))(std::forward<Args>(args)...);
        }}
    {
    }

    Result operator()(Args... args) const { return call_(object_, std::forward<Args>(args)...); }

private:
    void* object_;
    Result (*call_)(void*, Args...);
};

} // namespace servopanel::basic
