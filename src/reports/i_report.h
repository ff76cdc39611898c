#pragma once
// The interface through which every log is composed. The default
// implementation keeps Name and Section and does nothing else.
#include <cstdint>
#include <string>
#include <variant>

#include "platform/clock.h"

namespace tamrix {

/// The values handed to AddItem carry the Basic type they are formatted by;
/// this one is the Basic Empty.
struct EmptyValue {};
/// The Basic Null.
struct NullValue {};
/// The Basic Nothing.
struct NothingValue {};
/// An object, shown by its class name.
struct ObjectValue {
    /// The class name shown for it.
    std::string className;
};
/// A Single, kept apart from Double because it prints its own way.
struct SingleValue {
    /// The number.
    float value;
};
/// Any value AddItem accepts.
using ItemValue = std::variant<EmptyValue, NullValue, NothingValue, std::string, std::int16_t,
                               std::int32_t, bool, double, SingleValue, DateTime, ObjectValue>;

/// A log being composed; this default keeps Name and Section and drops the rest.
class IReport {
public:
    /// Lets each kind of report clean up its own way.
    virtual ~IReport() = default;

    /// Ends the report; its viewer goes.
    virtual void CloseSummary() {}
    /// Starts an empty report; false when it cannot.
    virtual bool OpenSummary(int /*mode*/) { return false; }
    /// Adds a named value as one line.
    virtual void AddItem(const std::string& /*itemName*/, const ItemValue& /*itemValue*/) {}
    /// Shows the report, modal when `modal` is not 0.
    virtual void Show(int /*modal*/) {}
    /// The section the next lines belong to.
    virtual std::string Section() const { return section_; }
    /// Sets the section the next lines belong to.
    virtual void SetSection(const std::string& value) { section_ = value; }
    /// The report's name.
    virtual std::string Name() const { return name_; }
    /// Sets the report's name.
    virtual void SetName(const std::string& value) { name_ = value; }
    /// Appends a line.
    virtual void AddLine(const std::string& /*data*/) {}
    /// Appends text with no line break.
    virtual void AddString(const std::string& /*data*/) {}

private:
    std::string name_;
    std::string section_;
};

}  // namespace tamrix
