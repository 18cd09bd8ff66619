// A borrowed callable, for arguments that are called before the callee returns. Never stored, never allocates.
#pragma once

#include <concepts>
#include <memory>
#include <type_traits>
#include <utility>

namespace orvel {

template <class Signature>
class FunctionRef;

template <class Return, class... Arguments>
class FunctionRef<Return(Arguments...)> {
public:
    template <class Callable>
    requires(!std::same_as<std::remove_cvref_t<Callable>, FunctionRef> &&
             std::is_invocable_r_v<Return, Callable&, Arguments...>) FunctionRef(Callable&& callable)
        : object_(const_cast<void*>(static_cast<const void*>(std::addressof(callable)))),
          call_([](void* object, Arguments... arguments) -> Return {
              return (*static_cast<std::remove_reference_t<Callable>*>(object))(std::forward<Arguments>(arguments)...);
          }) {}

    Return operator()(Arguments... arguments) const { return call_(object_, std::forward<Arguments>(arguments)...); }

private:
    void* object_;
    Return (*call_)(void*, Arguments...);
};

}  // namespace orvel
