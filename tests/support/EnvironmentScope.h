// A variable of the environment, changed for the length of a scope.
#pragma once

#include "core/paths/EnginePaths.h"
#include "platform/text/TextConversion.h"
#include "platform/winapi/WinApi.h"

#include <optional>
#include <string_view>

namespace ovrin::testing {

class EnvironmentScope {
public:
    // No value: the variable is unset.
    EnvironmentScope(std::string_view name, const std::optional<WideText> &value)
        : name_(Utf8ToWide(name)), old_(EnginePaths::ReadEnvironmentVariable(name)) {
        Set(value);
    }
    EnvironmentScope(const EnvironmentScope &) = delete;
    EnvironmentScope &operator=(const EnvironmentScope &) = delete;
    ~EnvironmentScope() { Set(old_); }

private:
    void Set(const std::optional<WideText> &value) const {
        SetEnvironmentVariableW(name_.c_str(), value ? value->c_str() : nullptr);
    }

    WideText name_;
    std::optional<WideText> old_;
};

} // namespace ovrin::testing
