// Every test starts with a file-system service that has read nothing: the
// identity of a file an earlier test read and deleted may come back on a new
// output file, which would then pass for a file of the input project.
#include <gtest/gtest.h>

#include "platform/file_system.h"

namespace tamrix::testing {
namespace {

class FreshFileSystem : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo&) override { SharedFileSystem().SetWriteRoot(""); }
};

const bool registered = [] {
    ::testing::UnitTest::GetInstance()->listeners().Append(new FreshFileSystem);
    return true;
}();

}  // namespace
}  // namespace tamrix::testing
