# Debian packages: libksundo1 (the library and the bundled platform), libksundo-dev and ks-editor.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ksundo)
# Who gives packages to others writes a name and an address of their own here.
set(CPACK_PACKAGE_CONTACT "The ksundo authors <maintainers@ksundo.example>")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
                                                WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library platform development docs editor)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/ksundo ${PROJECT_BINARY_DIR}/platform
                                              ${PROJECT_BINARY_DIR}/platform/application)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# Each package has a description of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")

set(runtime_package libksundo${PROJECT_VERSION_MAJOR})
set(same_runtime "${runtime_package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

# ks_package(group name section description components...): a package of some components.
macro(ks_package group name section description)
    string(TOUPPER ${group} key)
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${key}_DESCRIPTION "${description}")
    foreach(component IN ITEMS ${ARGN})
        string(TOUPPER ${component} component_key)
        set(CPACK_COMPONENT_${component_key}_GROUP ${group})
    endforeach()
    install(
        FILES ${PROJECT_SOURCE_DIR}/cmake/debian/copyright ${PROJECT_BINARY_DIR}/package/changelog.gz
              ${PROJECT_BINARY_DIR}/package/changelog.Debian.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name}
        COMPONENT ${ARGV4})
endmacro()

ks_package(
    runtime ${runtime_package} libs
    "undo and redo for interactive 3D scene applications
Commands for every edit of an OpenSG scene: fields, transforms, variants,
lights, materials, tags and constraints. Continuous edits become one step, and
the application hears of each step.
.
This package holds the library, and the scene graph and services that are
bundled with it."
    library platform)
ks_package(
    development libksundo-dev libdevel
    "undo and redo for interactive 3D scene applications - development files
Headers, a CMake package, a pkg-config file and guides of the undo library
ksundo."
    development docs)
ks_package(
    editor ks-editor graphics
    "edit 3D models by scripts, every edit undoable
Opens models of some forty formats (glTF, COLLADA, FBX, OBJ and others) as a
scene of nodes, transforms, lights and materials, and edits it as a script in
JavaScript says. Each edit is a step that can be undone and redone."
    editor)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_DEBIAN_EDITOR_PACKAGE_DEPENDS "${same_runtime}")
set(CPACK_DEBIAN_EDITOR_PACKAGE_RECOMMENDS qt5-image-formats-plugins)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${same_runtime}, libboost-dev, qtbase5-dev (>= 5.15)")

# The program's changelog as it is, and one of the packaging, which has a format of its own.
execute_process(COMMAND date --utc --rfc-email --date=${KS_RELEASE_DATE} OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE
                        COMMAND_ERROR_IS_FATAL ANY)
file(
    WRITE ${PROJECT_BINARY_DIR}/package/changelog.Debian
    "ksundo (${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * Release ${PROJECT_VERSION}, see changelog.gz.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
configure_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_BINARY_DIR}/package/changelog COPYONLY)
execute_process(COMMAND gzip -9 --no-name --keep --force changelog changelog.Debian WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/package
                        COMMAND_ERROR_IS_FATAL ANY)

include(CPack)
