// A value or the reason why there is none. For failures that somebody will be told of; plain absence is std::optional.
#pragma once

#include <cassert>
#include <utility>
#include <variant>

namespace orvel {

/// The value of an operation that yields nothing but success.
struct Done {};

template <class Value, class Failure>
class Result {
public:
    Result(Value value) : state_(std::in_place_index<0>, std::move(value)) {}
    Result(Failure failure) : state_(std::in_place_index<1>, std::move(failure)) {}

    explicit operator bool() const { return state_.index() == 0; }

    Value& operator*() & { return *std::get_if<0>(&state_); }
    const Value& operator*() const& { return *std::get_if<0>(&state_); }
    Value&& operator*() && { return std::move(*std::get_if<0>(&state_)); }
    Value* operator->() { return std::get_if<0>(&state_); }
    const Value* operator->() const { return std::get_if<0>(&state_); }

    const Failure& failure() const {
        assert(state_.index() == 1);
        return *std::get_if<1>(&state_);
    }

private:
    std::variant<Value, Failure> state_;
};

}  // namespace orvel
