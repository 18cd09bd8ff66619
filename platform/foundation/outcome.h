// How an operation that a person asked for went.
#pragma once

#include <string>

#include "platform/foundation/result.h"

namespace orvel {

/// Why it failed.
struct Failure {
    enum class Cause {
        circumstances,  ///< they may change by themselves
        request,        ///< it has to be another one
        content,        ///< a file was read whole, and doesn't hold what it should
        afterwards,     ///< what was asked for is done; but a loss of power may undo it, or it can't be told
    };

    std::string reason;  ///< one line for that person, without a full stop
    Cause cause = Cause::circumstances;
    std::string field = {};  ///< of a design, when one is at fault
};

/// How an operation ends that has done all, when a loss of power may undo it for that reason.
inline Failure doneForNow(const std::string& why) {
    return {why + "; the change is made, but may not survive a loss of power", Failure::Cause::afterwards};
}

template <class Value>
using Outcome = Result<Value, Failure>;

}  // namespace orvel
