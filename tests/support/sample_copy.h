#pragma once
// The start of every test that converts the bundled sample: a fixed date, an
// empty project model and a copy of the sample in DIR/in.
#include <cstdlib>
#include <filesystem>
#include <string>

#include "model/project_state.h"
#include "support/environment.h"

namespace tamrix::testing {

inline void PrepareSampleCopy(const std::filesystem::path& dir) {
    testing::SetEnvironment("SOURCE_DATE_EPOCH", "1299333420");
    std::filesystem::copy(std::string(TAMRIX_SOURCE_DIR) + "/samples/tideclock", dir / "in",
                          std::filesystem::copy_options::recursive);
}

}  // namespace tamrix::testing
