#pragma once
// Sets and clears environment variables the same way on every system.
#include <cstdlib>

namespace tamrix::testing {

inline void SetEnvironment(const char* name, const char* value) {
#ifdef _WIN32
    ::_putenv_s(name, value);
#else
    ::setenv(name, value, 1);
#endif
}

inline void ClearEnvironment(const char* name) {
#ifdef _WIN32
    ::_putenv_s(name, "");
#else
    ::unsetenv(name);
#endif
}

}  // namespace tamrix::testing
