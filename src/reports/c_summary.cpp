#include "reports/c_summary.h"

#include <cmath>
#include "model/conversion.h"

#include "platform/byte_text.h"
#include "platform/counter16.h"
#include "platform/file_system.h"
#include "platform/format.h"
#include "platform/path_helpers.h"
#include "platform/program_error.h"

namespace tamrix {
namespace {

SummaryViewerFactory& Factory() {
    static SummaryViewerFactory factory;
    return factory;
}

template <class... Ts>
struct Overloaded : Ts... {
    using Ts::operator()...;
};
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

}  // namespace

void SetSummaryViewerFactory(SummaryViewerFactory factory) { Factory() = std::move(factory); }

CSummary::CSummary(ErrorReporter& errors) : errors_(errors) { EnsureViewer(); }

CSummary::~CSummary() = default;

void CSummary::EnsureViewer() {
    if (!viewer_ && Factory()) {
        viewer_ = Factory()(errors_);
        if (viewer_) {
            viewer_->onCloseForm = [this] {
                if (viewer_) viewer_->Hide();
            };
        }
    }
}

void CSummary::CloseSummary() { viewer_.reset(); }

bool CSummary::OpenSummary(int /*mode*/) {
    return Guarded(errors_, "CSummary:OpenSummary", false, [&] {
        EnsureViewer();
        document_.clear();
        if (viewer_) {
            viewer_->SetCaption(Name());
            viewer_->SetSaveFileName(Name());
            viewer_->SetDocument(document_);
            viewer_->InitRTFWidth();
        }
        return true;
    });
}

void CSummary::AddLine(const std::string& data) { document_ += data + "\r\n"; }

void CSummary::AddString(const std::string& data) { document_ += data; }

std::string CSummary::FormatItemValue(const ItemValue& value) {
    return std::visit(
        Overloaded{[](const EmptyValue&) { return std::string("Empty"); },
                   [](const NullValue&) { return std::string("Null"); },
                   [](const NothingValue&) { return std::string("Nothing"); },
                   [](const std::string& s) { return s; },
                   [](std::int16_t n) { return FormatNumber(n, "0"); },
                   [](std::int32_t n) { return FormatNumber(n, "0"); },
                   [](bool b) { return BooleanText(b); }, [](double d) { return dblFormat(d); },
                   [](const SingleValue& s) { return dblFormat(static_cast<double>(s.value)); },
                   [](const DateTime& t) { return GeneralDate(t); },
                   [](const ObjectValue& o) { return o.className; }},
        value);
}

void CSummary::AddItem(const std::string& itemName, const ItemValue& itemValue) {
    GuardedVoid(errors_, "CSummary:AddItem", [&] {
        if (!itemName.empty()) {
            AddLine(itemName + ": \t" + FormatItemValue(itemValue));
            return;
        }
        // Without a name the value is converted as it stands.
        const std::string plain = std::visit(
            Overloaded{
                [](const std::string& s) { return s; },
                [](std::int16_t n) { return std::to_string(n); },
                [](std::int32_t n) { return std::to_string(n); },
                [](bool b) { return BooleanText(b); }, [](double d) { return GeneralNumber(d); },
                [](const SingleValue& s) { return GeneralNumber(static_cast<double>(s.value)); },
                [](const DateTime& t) { return GeneralDate(t); },
                [](const auto&) { return std::string(); }},
            itemValue);
        AddLine(plain);
    });
}

void CSummary::Show(int modal) {
    GuardedVoid(errors_, "CSummary:Show", [&] {
        EnsureViewer();
        if (!viewer_) return;
        viewer_->SetDocument(document_);
        viewer_->Show(modal != 0);
    });
}

bool CSummary::SaveAsTextFile(FileSystem& fs, const std::string& fileName) const {
    try {
        fs.WriteAll(fileName, document_);
        return true;
    } catch (...) {
        return false;
    }
}

void CSummary::ViewFile(const std::string& filter, bool readOnly, const std::string& fileName) {
    GuardedVoid(errors_, "CSummary:ViewFile", [&] {
        OpenSummary(0);
        if (!viewer_) return;
        viewer_->SetReadOnly(readOnly);
        std::string name = fileName;
        if (name.empty()) {
            name = viewer_->ChooseFileToView(filter, readOnly);
            if (name.empty()) return;
        }
        viewer_->InitRTFWidth();
        viewer_->SetCaption(name);
        const std::size_t dot = name.rfind('.');
        const bool rich = dot != std::string::npos && FindNoCase(name, ".rtf", dot) != kNotFound;
        viewer_->LoadFile(name, rich);
        viewer_->SetSaveFileName(modUtilities::FileNameNoPath(name));
        viewer_->Show(false);
    });
}

std::string CSummary::dblEFormat(double value, int digits) {
    const double sign = value < 0 ? -1.0 : 1.0;
    std::string pattern;
    if (digits < 0)
        pattern = "#";
    else
        pattern = (value < 0 ? "0." : " 0.") + std::string(static_cast<std::size_t>(digits), '0');
    double m = std::fabs(value);
    Counter16 exponent;
    if (m < 1 && m != 0) {
        while (m < 1) {
            m *= 10;
            exponent += -1;
        }
    } else {
        while (m >= 10) {
            m /= 10;
            exponent += 1;
        }
    }
    const std::string expText =
        exponent < 0 ? "E" + FormatNumber(exponent, "00") : "E+" + FormatNumber(exponent, "00");
    return FormatNumber(sign * m, pattern) + expText;
}

std::string CSummary::dblFormat(double value) {
    const double a = std::fabs(value);
    std::string text;
    if (a > 10000)
        text = dblEFormat(value, 3);
    else if (a > 100)
        text = FormatNumber(value, "#.00");
    else if (a > 10)
        text = FormatNumber(value, "#.00");
    else if (a > 1)
        text = FormatNumber(value, "#.000");
    else if (value == 0)
        text = "0";
    else if (a >= 0.1)
        text = FormatNumber(value, "0.0000");
    else
        text = dblEFormat(value, 3);
    // Right-aligned in 12 places; a longer text keeps one leading space, but one of
    // exactly 13 characters is cut to the field (a threshold kept as it always was).
    std::size_t width = 12;
    if (text.size() > 13) width = text.size() + 1;
    if (text.size() >= width) return text.substr(0, width);
    return std::string(width - text.size(), ' ') + text;
}

bool SaveReport(FileSystem& fs, const CSummary* report, const std::string& fileName) {
    if (report == nullptr) return false;
    report->SaveAsTextFile(fs, fileName);
    return true;
}

}  // namespace tamrix
