// The session variables that the platform's own session provides, taken from the desktop's.
#pragma once

namespace ovrin {

// Sets USERPROFILE, APPDATA and LOCALAPPDATA from HOME and the XDG folders, each only where it is unset; one set to the
// empty text stays. For a program's entry, before any thread.
void SupplySessionVariables();

} // namespace ovrin
