# Reads the tables of docs/commands.md, a line for each command class, and writes two headers from them into the build tree:
# <ksundo/ksCommands.h>, which includes the header of every class, and <ksCommandList.h> of the target ks-command-list, whose
# KS_COMMAND_LIST(X) is X(Class) for each class in turn.

set(page ${PROJECT_SOURCE_DIR}/docs/commands.md)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${page})

set(headers "")
set(KS_CLASSES "")
file(STRINGS ${page} rows REGEX "^\\| `ks")
foreach(row IN LISTS rows)
    if(NOT row MATCHES "^\\| `([^`]+)` \\| `([^`]+)` \\| .+ \\|$")
        message(FATAL_ERROR "${page}: not a row of a class, its header and what it does:\n${row}")
    endif()
    string(APPEND KS_CLASSES " \\\n    X(${CMAKE_MATCH_1})")
    list(APPEND headers "#include <ksundo/${CMAKE_MATCH_2}>")
endforeach()
list(REMOVE_DUPLICATES headers)
list(JOIN headers "\n" KS_INCLUDES)

file(
    CONFIGURE
    OUTPUT ${PROJECT_BINARY_DIR}/include/ksundo/ksCommands.h
    CONTENT "#pragma once

/// Every command class of the library, see docs/commands.md.

@KS_INCLUDES@
"
    @ONLY)
file(
    CONFIGURE
    OUTPUT ${PROJECT_BINARY_DIR}/command-list/ksCommandList.h
    CONTENT "#pragma once

#include <ksundo/ksCommands.h>

/// X(Class) for each command class of the library.
#define KS_COMMAND_LIST(X)@KS_CLASSES@
"
    @ONLY)

add_library(ks-command-list INTERFACE)
target_include_directories(ks-command-list INTERFACE ${PROJECT_BINARY_DIR}/command-list)
target_link_libraries(ks-command-list INTERFACE ks::undo)
