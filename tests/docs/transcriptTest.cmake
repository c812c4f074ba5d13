# Runs what script/demo runs, and expects that README.md shows what the checker says: of the tour the first lines, dots and the last
# ones, and of the room's script some steps.
# usage: cmake -D CHECKER=file -D ROOT=folder -P transcriptTest.cmake
set(room ${ROOT}/editor/models/room/room.gltf)
execute_process(COMMAND ${CHECKER} --headless ${room} OUTPUT_VARIABLE tour COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CHECKER} --headless ${room} --verbose --script ${ROOT}/editor/scripts/room.js
                OUTPUT_VARIABLE steps COMMAND_ERROR_IS_FATAL ANY)
file(READ ${ROOT}/README.md page)

# expect(output shown): that the lines stand in the output.
function(expect output shown)
    string(FIND "\n${output}" "\n${shown}" place)
    if(place EQUAL -1)
        message(SEND_ERROR "README.md shows what the checker does not say:\n${shown}")
    endif()
endfunction()

if(NOT "${page}" MATCHES "```\n(model [^`]*\n)\\.\\.\\.\n([^`]*OK: [^\n]*\n)```")
    message(FATAL_ERROR "README.md shows no tour")
endif()
set(end "${CMAKE_MATCH_2}")
expect("${tour}" "${CMAKE_MATCH_1}")
expect("${tour}" "${end}")
if(NOT "${page}" MATCHES "```\n(step [^`]*\n)```")
    message(FATAL_ERROR "README.md shows no steps")
endif()
expect("${steps}" "${CMAKE_MATCH_1}")
