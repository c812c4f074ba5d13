# Runs the application of the guide to integrating and expects that the guide shows what it writes.
# usage: cmake -D PROGRAM=file -D PAGE=file -P pageTest.cmake
execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
file(READ ${PAGE} text)
string(FIND "${text}" "```\n${output}```\n" place)
if(output STREQUAL "" OR place EQUAL -1)
    message(FATAL_ERROR "${PAGE} does not show what the application writes:\n${output}")
endif()
