// The result of an operation that a person asked for.
#pragma once

#include <string>

#include "platform/foundation/result.h"
#include "platform/language/sentence.h"

namespace orvel {

/// Why it failed.
struct Failure {
    enum class Cause {
        circumstances,  ///< trying again later may help
        request,        ///< what was asked for can't be done; ask for something else
        content,        ///< a file was read, but its content isn't valid
        afterwards,     ///< it is done, but a loss of power may undo it, or the answer can't be printed
    };

    std::string reason;  ///< one line for that person, without a full stop
    Cause cause = Cause::circumstances;
    std::string field = {};  ///< of a design, when one is at fault
};

/// The result of an operation that has succeeded, but that a loss of power may undo, for that reason.
inline Failure doneForNow(const std::string& why) {
    return {clauses(why, sentence("the change is made, but may not survive a loss of power")),
            Failure::Cause::afterwards};
}

template <class Value>
using Outcome = Result<Value, Failure>;

}  // namespace orvel
