#pragma once
// The Basic error number a call raises; 0 when it raises none.
#include <functional>

#include "platform/program_error.h"

namespace tamrix::testing {

inline int ErrorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const BasicError& e) {
        return e.Number();
    }
    return 0;
}

}  // namespace tamrix::testing
