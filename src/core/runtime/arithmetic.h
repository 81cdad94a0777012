#pragma once
// Conversions and arithmetic that raise the language's run-time errors instead of producing
// infinities, NaNs or undefined behaviour.
#include <cstdint>

namespace tellux::rt {

// Round half to even into 16 bits; error 6 outside -32768..32767.
int16_t CInt(double v);
// Round half to even into 32 bits; error 6 outside the 32-bit range.
int32_t CLng(double v);
// Floor (the language's Int) and truncation (Fix), kept as doubles.
double Int(double v);
double Fix(double v);
// Round to single precision; error 6 when the value does not fit a float.
float CSng(double v);

// Floating division: error 11 for a zero divisor (error 6 for 0/0 and for an infinite quotient).
double Div(double a, double b);
// Natural logarithm: error 5 for a non-positive argument.
double Log(double v);
// Exponential: error 6 when the result overflows.
double Exp(double v);
// Square root: error 5 for a negative argument.
double Sqr(double v);
// Power a^b with the same overflow rule.
double Pow(double a, double b);

}  // namespace tellux::rt
