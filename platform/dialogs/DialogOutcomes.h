// How a step of a driver ends: an accepted result without paths lets the run go on, any other is the driver's own.
#pragma once

#include "platform/dialogs/FileDialogRecords.h"
#include "platform/text/SystemErrorText.h"
#include "platform/winapi/WinApi.h"

#include <string_view>

namespace ovrin {

[[nodiscard]] inline FileDialogResult GoOn() {
    return {.status = FileDialogStatus::Accepted, .paths = {}, .message = {}};
}

[[nodiscard]] inline bool GoesOn(const FileDialogResult &outcome) {
    return outcome.status == FileDialogStatus::Accepted;
}

[[nodiscard]] inline FileDialogResult PlatformFailure(std::string_view operation, HRESULT code) {
    return {.status = FileDialogStatus::PlatformError,
            .paths = {},
            .message = HResultFailureText(operation, static_cast<std::uint32_t>(code))};
}

// Of a call that failed, or succeeded and gave nothing.
[[nodiscard]] inline FileDialogResult NothingGiven(std::string_view operation, HRESULT code) {
    return PlatformFailure(operation, code < 0 ? code : E_POINTER);
}

[[nodiscard]] inline FileDialogResult OutcomeOf(std::string_view operation, HRESULT code) {
    return code < 0 ? PlatformFailure(operation, code) : GoOn();
}

[[nodiscard]] inline FileDialogResult InvalidText(std::string_view subject) {
    return {.status = FileDialogStatus::InvalidRequest, .paths = {}, .message = InvalidUtf8Text(subject)};
}

} // namespace ovrin
