#include "platform/program_identity.h"

#include "platform/clock.h"
#include "platform/format.h"
#include "tamrix_version.h"

namespace tamrix {

std::string VersionString() {
    return FormatNumber(kVersionMajor, "0") + "." + FormatNumber(kVersionMinor, "0") + "." +
           FormatNumber(kVersionRevision, "0");
}

std::string BannerLine(std::string_view text) {
    return std::string(text) + kProgramName + " Version " + VersionString();
}

std::string FileDateText() { return FormatDate(Now(), "mmmm dd, yyyy, hh:mm AMPM"); }

std::string LogDateText() { return FormatDate(Now(), "mmmm dd, yyyy: hh:mm AM/PM"); }

}  // namespace tamrix
