# Runs the probe in a folder whose path is longer than the first buffer of 512 units. A program of the test's own can't
# start it there: Wine refuses such a path to one of its processes, but not to its loader.
# Takes PROBE, EMULATOR (empty where none is needed) and FOLDER, which it makes anew.
file(REMOVE_RECURSE ${FOLDER})
set(directory ${FOLDER})
foreach(letter a b c d e)
  string(REPEAT ${letter} 120 name)
  string(APPEND directory /${name})
endforeach()
file(MAKE_DIRECTORY ${directory})
file(COPY ${PROBE} DESTINATION ${directory})
get_filename_component(program ${PROBE} NAME)

set(ENV{OVRIN_PROBE_OUTPUT} output)
execute_process(COMMAND ${EMULATOR} ${directory}/${program} WORKING_DIRECTORY ${FOLDER} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the probe ends with ${result}")
endif()

# On Windows the path comes with its drive in front.
file(STRINGS ${FOLDER}/output lines)
list(GET lines 0 executable)
string(REPLACE "\\" "/" executable ${executable})
string(LENGTH ${directory}/${program} length)
string(LENGTH ${executable} seen)
math(EXPR start "${seen} - ${length}")
if(start GREATER_EQUAL 0)
  string(SUBSTRING ${executable} ${start} -1 executable)
endif()
if(NOT executable STREQUAL ${directory}/${program})
  message(FATAL_ERROR "the probe lies at ${directory}/${program} and reads ${executable}")
endif()
