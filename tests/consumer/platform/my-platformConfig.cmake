# A platform under names of its own: my::scenegraph and my::services, of the libraries and headers that are installed in
# MY_PLATFORM_PREFIX.
find_package(Threads REQUIRED)

# my_platform_library(target library): an imported library.
function(my_platform_library target library)
    find_library(location ${library} PATHS ${MY_PLATFORM_PREFIX} PATH_SUFFIXES lib lib64 lib/${CMAKE_LIBRARY_ARCHITECTURE}
                 NO_DEFAULT_PATH NO_CACHE REQUIRED)
    add_library(${target} SHARED IMPORTED GLOBAL)
    set_target_properties(${target} PROPERTIES IMPORTED_LOCATION ${location})
    target_include_directories(${target} INTERFACE ${MY_PLATFORM_PREFIX}/include/ksundo-platform)
    target_link_libraries(${target} INTERFACE ${ARGN})
endfunction()

my_platform_library(my::scenegraph ksundo-scenegraph Threads::Threads)
my_platform_library(my::services ksundo-application my::scenegraph)
