#pragma once
// One clock for every date written into a file or log. SOURCE_DATE_EPOCH,
// when set, fixes it (in UTC) so that output is reproducible.
namespace tamrix {

/// A calendar date and time of day, in the zone of the clock that made it.
struct DateTime {
    int year = 1970;  ///< four digits
    int month = 1;    ///< 1..12
    int day = 1;      ///< 1..31
    int hour = 0;     ///< 0..23
    int minute = 0;   ///< 0..59
    int second = 0;   ///< 0..59
};

/// The current date and time, or the fixed one of SOURCE_DATE_EPOCH.
DateTime Now();

}  // namespace tamrix
