#include "platform/program_error.h"

#include <map>
#include <new>
#include <utility>
#include <vector>

#include "platform/format.h"
#include "platform/view.h"
#include "tamrix_version.h"

namespace tamrix {

BasicError::BasicError(int number, const std::string& detail)
    : std::runtime_error(detail.empty() ? ErrorDescription(number) : detail), number_(number) {}

void RaiseError(int number, const std::string& detail) { throw BasicError(number, detail); }

std::string ErrorDescription(int number) {
    switch (number) {
        case 0: return "";
        case 3: return "Return without GoSub";
        case 5: return "Invalid procedure call or argument";
        case 6: return "Overflow";
        case 7: return "Out of memory";
        case 9: return "Subscript out of range";
        case 11: return "Division by zero";
        case 13: return "Type mismatch";
        case 51: return "Internal error";
        case 52: return "Bad file name or number";
        case 53: return "File not found";
        case 54: return "Bad file mode";
        case 55: return "File already open";
        case 57: return "Device I/O error";
        case 58: return "File already exists";
        case 61: return "Disk full";
        case 62: return "Input past end of file";
        case 67: return "Too many files";
        case 68: return "Device unavailable";
        case 70: return "Permission denied";
        case 71: return "Disk not ready";
        case 75: return "Path/File access error";
        case 76: return "Path not found";
        case 91: return "Object variable or With block variable not set";
        case 326: return "Resource with this identifier not found";
        case 457: return "This key is already associated with an element of this collection";
        case 600: return "The target lies outside the new project folder";
        case 32755: return "Cancel was selected.";
        default: return "Application-defined or object-defined error";
    }
}

int CurrentErrorNumber() {
    try {
        throw;
    } catch (const BasicError& e) {
        return e.Number();
    } catch (const std::bad_alloc&) {
        return err::kOutOfMemory;
    } catch (const std::out_of_range&) {
        return err::kSubscript;
    } catch (const std::length_error&) {
        return err::kOutOfMemory;
    } catch (...) {
        return err::kInternal;
    }
}

std::string CurrentErrorDetail() {
    try {
        throw;
    } catch (const BasicError& e) {
        return e.what() == ErrorDescription(e.Number()) ? std::string() : std::string(e.what());
    } catch (...) {
        return {};
    }
}

ErrorReportOperation::ErrorReportOperation(ErrorReporter& errors) : errors_(errors) {
    ++errors_.depth_;
}

ErrorReportOperation::~ErrorReportOperation() {
    ErrorReporter& state = errors_;
    if (--state.depth_ > 0) return;
    auto reports = std::move(state.reports_);
    auto order = std::move(state.order_);
    state.reports_.clear();
    state.order_.clear();
    try {
        for (const auto& key : order) {
            const auto& report = reports[key];
            if (report.times > 1)
                state.view_.ErrorRepeated(report.text, report.title, report.times - 1);
        }
    } catch (...) {
        // The count is a courtesy; it must never fail the operation.
    }
}

void ReportProgramError(ErrorReporter& errors, int number, std::string_view source,
                        std::string_view detail) {
    try {
        std::string text, title;
        if (number >= 512) {
            text = "Program Error No. " + SignedText(number) + " From: " + std::string(source);
            if (!detail.empty()) text += "\r\n" + std::string(detail);
            title = kProgramName;
        } else {
            text = std::string(source) + "\r\nError: " + ErrorDescription(number);
            title = "Error";
        }
        if (errors.depth_ > 0) {
            const auto key = std::make_pair(number, std::string(source));
            auto& report = errors.reports_[key];
            if (report.times++ > 0) return;
            errors.order_.push_back(key);
            report.text = text;
            report.title = title;
        }
        errors.view_.ErrorBox(text, title);
    } catch (...) {
        // The report itself must never fail its caller.
    }
}

}  // namespace tamrix
