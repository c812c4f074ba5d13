# Installs a build, moves what is there now to another place, and makes sure that nothing in it names the first or the sources.
# usage: cmake -D BUILD=folder -D STAGE=folder -P stage.cmake
file(REMOVE_RECURSE ${STAGE} ${STAGE}-first)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${STAGE}-first OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${STAGE}-first ${STAGE})
load_cache(${BUILD} READ_WITH_PREFIX "" ksundo_SOURCE_DIR)
foreach(place IN ITEMS ${ksundo_SOURCE_DIR}/ksundo ${ksundo_SOURCE_DIR}/platform ${STAGE}-first)
    execute_process(COMMAND grep --recursive --files-with-matches --fixed-strings ${place} ${STAGE} OUTPUT_VARIABLE files)
    if(files)
        message(FATAL_ERROR "These installed files name ${place}:\n${files}")
    endif()
endforeach()
