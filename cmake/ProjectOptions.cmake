# What every target of ours is compiled with: link to ovrin_options.
add_library(ovrin_options INTERFACE)
target_include_directories(ovrin_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(ovrin_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)

if(WIN32)
  target_compile_definitions(ovrin_options INTERFACE _WIN32_WINNT=0x0A00 WINVER=0x0A00 NTDDI_VERSION=0x0A00000B)
  # One file that runs on any machine: the compiler's own libraries go into the executable.
  target_link_options(ovrin_options INTERFACE -static -static-libgcc -static-libstdc++)
endif()

if(OVRIN_SANITIZE)
  target_compile_options(ovrin_options INTERFACE
    -fsanitize=${OVRIN_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(ovrin_options INTERFACE -fsanitize=${OVRIN_SANITIZE})
endif()
