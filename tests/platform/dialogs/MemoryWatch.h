// Tells when a piece of the program's memory is given back.
#pragma once

namespace ovrin::testing {

// Calls `onFree` once, before `memory` goes. Null ends the watch.
void WatchMemory(const void *memory, void (*onFree)());

} // namespace ovrin::testing
