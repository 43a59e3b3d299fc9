// Screen readers' view of the layer's own widgets.
#pragma once

namespace ovrin::layer {

// Once for the process; further calls do nothing.
void InstallAccessibility();

} // namespace ovrin::layer
