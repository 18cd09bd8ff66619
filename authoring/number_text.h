// A number as a person writes it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvel {

/// A text that is a decimal number, with at most one point and perhaps an exponent. Absent for any other text, and for
/// numbers beyond the range of a double.
std::optional<double> numberText(std::string_view text);

/// A part of a whole: a number such as 0.38, per cent such as "38%" or "38 %", or a quotient such as "19/50".
std::optional<double> portionText(std::string_view text);

/// The number as a person reads it, with six digits at most.
std::string inShort(double number);

/// "; did you mean 38%, which is 0.38?" of a progress from 1 to 100, or nothing.
std::string perCentMeant(double progress);

}  // namespace orvel
