#pragma once
// A 16-bit signed counter: going past 32767 (or below -32768) is an overflow
// error, as the counters of the project readers have always behaved.
#include <cstdint>

#include "platform/program_error.h"

namespace tamrix {

/// A counter that raises error 6 (overflow) where a 16-bit integer would.
class Counter16 {
public:
    /// The largest count, 32767.
    static constexpr long kMax = INT16_MAX;

    /// A count of 0.
    Counter16() = default;
    /// Raises error 6 when `value` does not fit.
    Counter16(long value) { Set(value); }  // NOLINT: used like a plain integer

    /// Adds `n`; raises error 6 on overflow and keeps the old count.
    Counter16& operator+=(long n) {
        Set(static_cast<long>(value_) + n);
        return *this;
    }
    /// Counts one more; raises error 6 past 32767.
    Counter16& operator++() { return *this += 1; }
    /// Takes a new count; raises error 6 when it does not fit.
    Counter16& operator=(long value) {
        Set(value);
        return *this;
    }
    /// The count, for use in plain integer arithmetic.
    operator int() const { return value_; }  // NOLINT
    /// The count.
    int Value() const { return value_; }

    /// Checks that `value` fits a 16-bit counter, raising an overflow otherwise.
    static int16_t Checked(long value) {
        if (value > INT16_MAX || value < INT16_MIN) RaiseError(err::kOverflow);
        return static_cast<int16_t>(value);
    }

private:
    void Set(long value) { value_ = Checked(value); }
    int16_t value_ = 0;
};

}  // namespace tamrix
