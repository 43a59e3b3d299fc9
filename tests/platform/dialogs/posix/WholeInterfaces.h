// The interfaces of the file dialogs with every method that nobody calls answered: here there are none of these.
#pragma once

#include "platform/winapi/WinApi.h"

namespace ovrin::testing {

using WholeShellItem = IShellItem;
using WholeShellItemArray = IShellItemArray;
using WholeOpenDialog = IFileOpenDialog;
using WholeSaveDialog = IFileSaveDialog;

} // namespace ovrin::testing
