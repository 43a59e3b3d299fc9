cmake_minimum_required(VERSION 3.25)

# The executable has to run on a bare Windows: it imports from the system's own libraries and no other.
set(system_dlls
  ADVAPI32 COMCTL32 DWMAPI GDI32 GDIPLUS KERNEL32 MSVCRT OLE32 SHELL32 USER32)

execute_process(COMMAND ${OBJDUMP} -p ${EXECUTABLE} OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "DLL Name: [^\n]*" imports "${headers}")
if(NOT imports)
  message(FATAL_ERROR "${EXECUTABLE} shows no imports at all")
endif()
foreach(import IN LISTS imports)
  string(REGEX REPLACE "DLL Name: (.*)\\.dll" "\\1" name "${import}")
  string(TOUPPER "${name}" name)
  if(NOT name IN_LIST system_dlls)
    message(SEND_ERROR "${EXECUTABLE} needs ${name}.dll, which isn't the system's")
  endif()
endforeach()
