#pragma once
// One clock for every date written into a file or log. SOURCE_DATE_EPOCH,
// when set, fixes it (in UTC) so that output is reproducible.
namespace tamrix {

struct DateTime {
    int year = 1970;
    int month = 1;  // 1..12
    int day = 1;
    int hour = 0;  // 0..23
    int minute = 0;
    int second = 0;
};

DateTime Now();

}  // namespace tamrix
