# Runs the room's script as script/demo does, and expects that README.md shows what the checker says: some steps, dots, the last
# line.
# usage: cmake -D CHECKER=file -D ROOT=folder -P transcriptTest.cmake
execute_process(
    COMMAND ${CHECKER} --headless ${ROOT}/editor/models/room/room.gltf --script ${ROOT}/editor/scripts/room.js
    OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
file(READ ${ROOT}/README.md page)
if(NOT "${page}" MATCHES "```\n(step [^`]*\n)\\.\\.\\.\n(OK: [^\n]*\n)```")
    message(FATAL_ERROR "README.md shows no steps")
endif()
foreach(shown IN ITEMS "${CMAKE_MATCH_1}" "${CMAKE_MATCH_2}")
    string(FIND "${output}" "\n${shown}" place)
    if(place EQUAL -1)
        message(SEND_ERROR "README.md shows what the checker does not say:\n${shown}")
    endif()
endforeach()
