#pragma once
// The interface through which every log is composed. The default
// implementation keeps Name and Section and does nothing else.
#include <cstdint>
#include <string>
#include <variant>

#include "platform/clock.h"

namespace tamrix {

// A value handed to AddItem, with the Basic type it is formatted by.
struct EmptyValue {};
struct NullValue {};
struct NothingValue {};
struct ObjectValue {
    std::string className;
};
struct SingleValue {
    float value;
};
using ItemValue = std::variant<EmptyValue, NullValue, NothingValue, std::string, std::int16_t,
                               std::int32_t, bool, double, SingleValue, DateTime, ObjectValue>;

class IReport {
public:
    virtual ~IReport() = default;

    virtual void CloseSummary() {}
    virtual bool OpenSummary(int /*mode*/) { return false; }
    virtual void AddItem(const std::string& /*itemName*/, const ItemValue& /*itemValue*/) {}
    virtual void Show(int /*modal*/) {}
    virtual std::string Section() const { return section_; }
    virtual void SetSection(const std::string& value) { section_ = value; }
    virtual std::string Name() const { return name_; }
    virtual void SetName(const std::string& value) { name_ = value; }
    virtual void AddLine(const std::string& /*data*/) {}
    virtual void AddString(const std::string& /*data*/) {}

private:
    std::string name_;
    std::string section_;
};

}  // namespace tamrix
