// The input focus among the windows of the layer.
#pragma once

namespace ovrin::layer {

class WindowHost;

// A control that is about to be hidden, disabled or destroyed gives its focus to its parent.
void PassFocusToParent(WindowHost &host);

} // namespace ovrin::layer
