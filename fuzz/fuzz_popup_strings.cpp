// libFuzzer entry point; the body is shared with the regression test.
#include "harnesses.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return tamrix::fuzz::PopupStrings(data, size);
}
