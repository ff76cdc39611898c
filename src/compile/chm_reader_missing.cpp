#include "compile/chm_reader.h"

namespace tamrix::compile {

bool ChmReaderAvailable() { return false; }

bool ReadChm(const std::string&, const std::vector<std::string>&, ChmContents&,
             std::string& error) {
    error = "this build has no compiled help reader";
    return false;
}

}  // namespace tamrix::compile
