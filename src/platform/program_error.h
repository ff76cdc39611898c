#pragma once
// Unexpected errors travel as BasicError inside a procedure; the procedure's
// guard turns them into the common error report and a failure result, so no
// error ever reaches a caller.
#include <exception>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tamrix {

/// Error numbers: the classic Basic run-time numbers, and the program's own from 512 up.
namespace err {
inline constexpr int kInvalidCall = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscript = 9;
inline constexpr int kInternal = 51;
inline constexpr int kFileNotFound = 53;
inline constexpr int kDeviceIO = 57;
inline constexpr int kPastEnd = 62;
inline constexpr int kPermission = 70;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kResourceNotFound = 326;
inline constexpr int kDuplicateKey = 457;
inline constexpr int kDialogCancelled = 32755;
/// Raised by the program itself: a target that would lie outside the new project folder.
inline constexpr int kOutsideNewFolder = 600;
}  // namespace err

/// An error with its Basic number and, optionally, what it concerns.
class BasicError : public std::runtime_error {
public:
    /// `detail` says what the error concerns (which file, and why); empty for the plain
    /// description.
    explicit BasicError(int number, const std::string& detail = {});
    /// The Basic error number.
    int Number() const { return number_; }

private:
    int number_;
};

/// Throws a BasicError with `number` and `detail`.
[[noreturn]] void RaiseError(int number, const std::string& detail = {});

/// The standard description of an error number ("Overflow", "File not found", ...).
std::string ErrorDescription(int number);

/// Error number of the exception being handled (call inside a catch block).
int CurrentErrorNumber();

/// What the exception being handled says beyond its number (call inside a catch
/// block); empty when that is only the standard description.
std::string CurrentErrorDetail();

class IView;

/// Where one conversion's error reports go: its view, and the reports counted
/// within the operation that runs.
class ErrorReporter {
public:
    /// Reports to `view`.
    explicit ErrorReporter(IView& view) : view_(view) {}
    ErrorReporter(const ErrorReporter&) = delete;
    ErrorReporter& operator=(const ErrorReporter&) = delete;

    /// The view the reports are shown on.
    IView& View() const { return view_; }

private:
    friend void ReportProgramError(ErrorReporter&, int, std::string_view, std::string_view);
    friend class ErrorReportOperation;
    struct RepeatedReport {
        std::string text;
        std::string title;
        int times = 0;  // shown once, then counted
    };
    IView& view_;
    int depth_ = 0;
    std::map<std::pair<int, std::string>, RepeatedReport> reports_;
    std::vector<std::pair<int, std::string>> order_;
};

/// The common error report: errors from 512 up are the program's own, and their
/// detail (which file, and why) follows on a line of its own.
void ReportProgramError(ErrorReporter& errors, int number, std::string_view source,
                        std::string_view detail = {});

/// Within one operation (one user command), a report with the same number and
/// source is shown once; when the operation ends the view is told how many times
/// it came again. Operations nest; the outermost one counts.
class ErrorReportOperation {
public:
    /// Starts an operation of `errors`.
    explicit ErrorReportOperation(ErrorReporter& errors);
    /// Ends the operation; the outermost one tells the view how often each report came again.
    ~ErrorReportOperation();
    ErrorReportOperation(const ErrorReportOperation&) = delete;
    ErrorReportOperation& operator=(const ErrorReportOperation&) = delete;

private:
    ErrorReporter& errors_;
};

/// Runs `body`; an exception becomes the error report for `source` ("module:Procedure")
/// and the result `failure`.
template <class R, class F>
R Guarded(ErrorReporter& errors, std::string_view source, R failure, F&& body) {
    try {
        return std::forward<F>(body)();
    } catch (...) {
        ReportProgramError(errors, CurrentErrorNumber(), source, CurrentErrorDetail());
        return failure;
    }
}

/// As Guarded, for a body that returns nothing.
template <class F>
void GuardedVoid(ErrorReporter& errors, std::string_view source, F&& body) {
    try {
        std::forward<F>(body)();
    } catch (...) {
        ReportProgramError(errors, CurrentErrorNumber(), source, CurrentErrorDetail());
    }
}

}  // namespace tamrix
