#pragma once
// What a conversion left on disk, told at its end. Only files this run wrote
// count; every refused write, failed writer and error report is named.
#include <iosfwd>
#include <string>
#include <vector>

namespace tamrix {
/// The wizard whose results are summed up.
class Wizard;
}  // namespace tamrix

namespace tamrix::cli {

/// The problems of a run that reached Finished: empty when there were none.
std::vector<std::string> ConversionProblems(Wizard& wizard, int errorReports);

/// Prints the summary of a finished conversion to `out` and its problems to `err`.
void PrintSummary(Wizard& wizard, const std::vector<std::string>& problems, bool quiet,
                  std::ostream& out, std::ostream& err);

}  // namespace tamrix::cli
