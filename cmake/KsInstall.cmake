# What cmake --install puts where. Components: library, platform (the bundled one), development, editor, docs.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/ksundo)

# ks_install_library(target component exported): a shared library, exported as ks::<exported>. It finds the others beside itself,
# and a platform that is not bundled where that was when this was built.
function(ks_install_library target component exported)
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${exported} INSTALL_RPATH "$ORIGIN" INSTALL_RPATH_USE_LINK_PATH ON)
    install(
        TARGETS ${target}
        EXPORT ksundoTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
                COMPONENT ${component}
                NAMELINK_COMPONENT development)
endfunction()

# ks_install_headers(from to): the headers of a folder tree.
function(ks_install_headers from to)
    install(DIRECTORY ${from}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${to} COMPONENT development FILES_MATCHING PATTERN "*.h")
endfunction()

ks_install_library(ksundo library undo)
ks_install_headers(${PROJECT_SOURCE_DIR}/ksundo ksundo)
ks_install_headers(${PROJECT_BINARY_DIR}/include/ksundo ksundo)

# The bundled platform's headers are included by bare names, so they get a folder of their own, which its targets name.
set(KS_PLATFORM_LIBS "")
set(KS_PLATFORM_CFLAGS "")
if(TARGET ks-scenegraph)
    set(KS_PLATFORM_LIBS "-lksundo-application -lksundo-scenegraph")
    set(KS_PLATFORM_CFLAGS "-I\${includedir}/ksundo-platform")
    ks_install_library(ks-scenegraph platform scenegraph)
    ks_install_library(ks-application platform application)
    target_include_directories(ks-scenegraph PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/ksundo-platform>)
    foreach(folder IN ITEMS opensg extension application)
        ks_install_headers(${PROJECT_SOURCE_DIR}/platform/${folder} ksundo-platform)
    endforeach()
endif()

install(
    EXPORT ksundoTargets
    NAMESPACE ks::
    DESTINATION ${package_folder}
    COMPONENT development)
set(KS_FOREIGN_TARGETS ${KSUNDO_SCENEGRAPH_TARGET} ${KSUNDO_APPLICATION_TARGET})
list(REMOVE_ITEM KS_FOREIGN_TARGETS ks::scenegraph ks::application)
list(JOIN KS_FOREIGN_TARGETS " " KS_FOREIGN_TARGETS)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/ksundoConfig.cmake.in ${PROJECT_BINARY_DIR}/package/ksundoConfig.cmake
                              INSTALL_DESTINATION ${package_folder} PATH_VARS KS_TRANSLATIONS_DIR NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/ksundoConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(
    FILES ${PROJECT_BINARY_DIR}/package/ksundoConfig.cmake ${PROJECT_BINARY_DIR}/package/ksundoConfigVersion.cmake
    DESTINATION ${package_folder}
    COMPONENT development)

# pkg-config finds everything from where its file is, so that the tree can be moved.
set(pc_folder ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
GNUInstallDirs_get_absolute_install_dir(translations_full_folder KS_TRANSLATIONS_DIR DATADIR)
file(RELATIVE_PATH KS_PREFIX_FROM_PC ${pc_folder} ${CMAKE_INSTALL_PREFIX})
file(RELATIVE_PATH KS_INCLUDES_FROM_PC ${pc_folder} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
file(RELATIVE_PATH KS_TRANSLATIONS_FROM_PC ${pc_folder} ${translations_full_folder})
configure_file(${CMAKE_CURRENT_LIST_DIR}/ksundo.pc.in ${PROJECT_BINARY_DIR}/package/ksundo.pc @ONLY)
install(
    FILES ${PROJECT_BINARY_DIR}/package/ksundo.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)

file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md heading REGEX "^## ${PROJECT_VERSION} ")
if(NOT heading MATCHES "\\(([0-9]+-[0-9]+-[0-9]+)\\)$")
    message(FATAL_ERROR "CHANGELOG.md lacks the section '## ${PROJECT_VERSION} (date)'")
endif()
set(KS_RELEASE_DATE ${CMAKE_MATCH_1})

if(TARGET ks-editor)
    include(KsInstallEditor)
endif()

# The guides, in the folders that their links expect.
file(GLOB top_pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/*.md)
install(
    FILES ${top_pages} ${PROJECT_SOURCE_DIR}/LICENSE
    DESTINATION ${CMAKE_INSTALL_DOCDIR}
    COMPONENT docs)
install(
    DIRECTORY ${PROJECT_SOURCE_DIR}/docs
    DESTINATION ${CMAKE_INSTALL_DOCDIR}
    COMPONENT docs
    FILES_MATCHING
    PATTERN "*.md"
    PATTERN "*.png"
    PATTERN "*.svg"
    PATTERN site EXCLUDE)
