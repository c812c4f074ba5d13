# The component editor: the program, its manual page, and what a desktop reads of it.
file(RELATIVE_PATH libraries_from_bin ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set_target_properties(ks-editor PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries_from_bin}")
install(TARGETS ks-editor RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT editor)

# ks_install_editor_file(file folder): a file of the component.
function(ks_install_editor_file file folder)
    install(
        FILES ${file}
        DESTINATION ${folder}
        COMPONENT editor)
endfunction()

set(desktop ${PROJECT_SOURCE_DIR}/editor/desktop)
configure_file(${desktop}/org.ksundo.editor.metainfo.xml.in ${PROJECT_BINARY_DIR}/package/org.ksundo.editor.metainfo.xml @ONLY)
ks_install_editor_file(${PROJECT_BINARY_DIR}/package/org.ksundo.editor.metainfo.xml ${CMAKE_INSTALL_DATADIR}/metainfo)
ks_install_editor_file(${desktop}/ks-editor.desktop ${CMAKE_INSTALL_DATADIR}/applications)
ks_install_editor_file(${desktop}/ks-editor.svg ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
ks_install_editor_file(${desktop}/ks-editor.xml ${CMAKE_INSTALL_DATADIR}/mime/packages)

set(guide_folder ${CMAKE_INSTALL_DATADIR}/doc/ks-editor)
ks_install_editor_file(${PROJECT_SOURCE_DIR}/docs/scripting.md ${guide_folder})
install(
    DIRECTORY ${PROJECT_SOURCE_DIR}/editor/scripts/ ${PROJECT_SOURCE_DIR}/editor/models/room
    DESTINATION ${guide_folder}/examples
    COMPONENT editor)

# It runs the program, which under the sanitizers needs the tests' settings.
find_program(HELP2MAN help2man)
if(HELP2MAN AND NOT KSUNDO_SANITIZE)
    set(page ${PROJECT_BINARY_DIR}/package/ks-editor.1)
    add_custom_command(
        OUTPUT ${page}.gz
        COMMAND ${HELP2MAN} --no-info --name "edit 3D models, every edit undoable" --output ${page} $<TARGET_FILE:ks-editor>
        COMMAND gzip -9 --no-name --force ${page}
        DEPENDS ks-editor
        VERBATIM)
    add_custom_target(ks-editor-manual ALL DEPENDS ${page}.gz)
    ks_install_editor_file(${page}.gz ${CMAKE_INSTALL_MANDIR}/man1)
endif()
