// A value, or the reason why there is none. For failures that are reported to somebody; plain absence is std::optional.
#pragma once

#include <cassert>
#include <utility>
#include <variant>

namespace orvel {

/// The value of an operation that yields nothing but success.
struct Done {};

/// Check which of the two it holds before you take the value or the failure.
template <class Value, class Failure>
class [[nodiscard]] Result {
public:
    Result(Value value) : state_(std::in_place_index<0>, std::move(value)) {}
    Result(Failure failure) : state_(std::in_place_index<1>, std::move(failure)) {}

    explicit operator bool() const { return state_.index() == 0; }

    Value& operator*() & { return *value(); }
    const Value& operator*() const& { return *value(); }
    Value&& operator*() && { return std::move(*value()); }
    Value* operator->() { return value(); }
    const Value* operator->() const { return value(); }

    const Failure& failure() const {
        assert(state_.index() == 1);
        return *std::get_if<1>(&state_);
    }

private:
    Value* value() {
        assert(state_.index() == 0);
        return std::get_if<0>(&state_);
    }
    const Value* value() const {
        assert(state_.index() == 0);
        return std::get_if<0>(&state_);
    }

    std::variant<Value, Failure> state_;
};

}  // namespace orvel
