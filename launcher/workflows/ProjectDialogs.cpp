#include "launcher/workflows/ProjectDialogs.h"

namespace ovrin {

// There is no dialog service yet: both commands end as if the user had cancelled.

void BrowseForLocation(LauncherState & /*state*/) {}

void OpenProjectFromDialog(HWND /*window*/) {}

} // namespace ovrin
