// The file dialogs' objects: what is set before the dialog is shown, and what the user chose.
#pragma once

#include "platform/winapi/subset/Com.h"

namespace ovrin::layer {

// `object` takes the new dialog's one reference. E_NOINTERFACE for an interface that it hasn't.
HRESULT CreateOpenDialog(REFIID iid, void **object);
HRESULT CreateSaveDialog(REFIID iid, void **object);

} // namespace ovrin::layer
