#include "platform/clock.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>

namespace tamrix {

DateTime Now() {
    std::time_t t = std::time(nullptr);
    bool utc = false;
    if (const char* epoch = std::getenv("SOURCE_DATE_EPOCH"); epoch != nullptr && *epoch != 0) {
        char* end = nullptr;
        errno = 0;
        const long long value = std::strtoll(epoch, &end, 10);
        if (errno == 0 && end != nullptr && *end == 0 && value >= 0) {
            t = static_cast<std::time_t>(value);
            utc = true;
        }
    }
    std::tm parts{};
#ifdef _WIN32
    if (utc)
        gmtime_s(&parts, &t);
    else
        localtime_s(&parts, &t);
#else
    if (utc)
        gmtime_r(&t, &parts);
    else
        localtime_r(&t, &parts);
#endif
    return DateTime{parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
                    parts.tm_hour,        parts.tm_min,     parts.tm_sec};
}

}  // namespace tamrix
