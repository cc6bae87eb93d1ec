# What goes where when the project is installed, and the Debian packages made of it:
#
#   servo-panel        the panel for operators, the kiosk that starts it, the manual
#   servo-panel-tools  servo-replay, servo-defs, servo-machine, servo-journal and servo-params for engineers
#   servo-panel-demo   the demonstration project
#   libservopanel-dev  libraries, headers and the CMake package ServoPanel, for programs that embed the controls
#
# Every library of the project is exported as ServoPanel::<name>, without panel_, host_ or adapter_ before its name.

set(panel_package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/ServoPanel")

# All libraries below src/, hosts/ and adapters/.
function(panel_installed_libraries result)
    set(found panel_core)
    set(folders src hosts adapters)
    list(TRANSFORM folders PREPEND "${PROJECT_SOURCE_DIR}/")
    while(folders)
        list(POP_FRONT folders folder)
        get_property(inner DIRECTORY "${folder}" PROPERTY SUBDIRECTORIES)
        list(APPEND folders ${inner})
        get_property(targets DIRECTORY "${folder}" PROPERTY BUILDSYSTEM_TARGETS)
        foreach(target IN LISTS targets)
            get_target_property(type ${target} TYPE)
            if(type MATCHES "^(STATIC|INTERFACE)_LIBRARY$")
                list(APPEND found ${target})
            endif()
        endforeach()
    endwhile()
    list(REMOVE_DUPLICATES found)
    set(${result} ${found} PARENT_SCOPE)
endfunction()

panel_installed_libraries(libraries)
foreach(target IN LISTS libraries)
    string(REGEX REPLACE "^(panel|host|adapter)_" "" name ${target})
    # The files carry the project's name, whoever links them sees ServoPanel::<name>.
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name} OUTPUT_NAME servopanel_${name})
    add_library(ServoPanel::${name} ALIAS ${target})
endforeach()
install(TARGETS ${libraries} EXPORT ServoPanelTargets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
install(EXPORT ServoPanelTargets NAMESPACE ServoPanel:: DESTINATION ${panel_package_folder} COMPONENT dev)

set(header_folders src adapters hosts/check hosts/portable hosts/machine hosts/line_machine hosts/journal hosts/params hosts/recording)
if(SERVOPANEL_QT)
    list(APPEND header_folders hosts/panel hosts/widgets)
endif()
foreach(folder IN LISTS header_folders)
    # hosts/panel stays the folder panel; src and adapters lose their names.
    if(folder MATCHES "/")
        install(DIRECTORY "${PROJECT_SOURCE_DIR}/${folder}" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/servopanel
                COMPONENT dev FILES_MATCHING PATTERN "*.h" PATTERN designer EXCLUDE)
    else()
        install(DIRECTORY "${PROJECT_SOURCE_DIR}/${folder}/" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/servopanel
                COMPONENT dev FILES_MATCHING PATTERN "*.h" PATTERN designer EXCLUDE)
    endif()
endforeach()

include(CMakePackageConfigHelpers)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/ServoPanelConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/ServoPanelConfig.cmake" INSTALL_DESTINATION ${panel_package_folder})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ServoPanelConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ServoPanelConfig.cmake" "${PROJECT_BINARY_DIR}/ServoPanelConfigVersion.cmake"
              "${PROJECT_SOURCE_DIR}/cmake/FindWmfLite.cmake"
    DESTINATION ${panel_package_folder} COMPONENT dev)

install(TARGETS servo-replay servo-defs servo-machine servo-journal servo-params DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
install(FILES "${PROJECT_SOURCE_DIR}/packaging/broker/mosquitto.conf" "${PROJECT_SOURCE_DIR}/packaging/broker/acl"
              "${PROJECT_SOURCE_DIR}/packaging/broker/no-reload.conf"
              "${PROJECT_SOURCE_DIR}/packaging/broker/socket-folder.conf"
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/servo-panel-tools/examples/broker COMPONENT tools)
install(PROGRAMS "${PROJECT_SOURCE_DIR}/packaging/broker/make_certificates"
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/servo-panel-tools/examples/broker COMPONENT tools)
install(DIRECTORY "${PROJECT_BINARY_DIR}/demo/project/" DESTINATION ${CMAKE_INSTALL_DATADIR}/servo-panel/demo COMPONENT demo)

# Manual pages and what each package says of itself, packed as Debian wants them.
set(packaging "${PROJECT_SOURCE_DIR}/packaging")
find_program(SERVOPANEL_GZIP gzip REQUIRED)
set(packed_files "")
function(panel_packed result file)
    cmake_path(GET file FILENAME name)
    set(packed "${PROJECT_BINARY_DIR}/packed/${name}.gz")
    # Without a time stamp: the same sources make the same package.
    add_custom_command(OUTPUT "${packed}" COMMAND ${SERVOPANEL_GZIP} -9nc "${file}" > "${packed}"
        DEPENDS "${file}" VERBATIM)
    list(APPEND packed_files "${packed}")
    set(packed_files "${packed_files}" PARENT_SCOPE)
    set(${result} "${packed}" PARENT_SCOPE)
endfunction()
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/packed")

set(tool_pages servo-replay servo-defs servo-machine servo-journal servo-params)
foreach(program IN LISTS tool_pages)
    panel_packed(page "${packaging}/man/${program}.1")
    install(FILES "${page}" DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
endforeach()
if(SERVOPANEL_QT)
    panel_packed(page "${packaging}/man/servo-panel.1")
    install(FILES "${page}" DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT panel)
endif()
panel_packed(changelog "${packaging}/debian/changelog")
foreach(component IN ITEMS tools:servo-panel-tools demo:servo-panel-demo dev:libservopanel-dev panel:servo-panel)
    string(REPLACE ":" ";" parts "${component}")
    list(GET parts 0 part)
    list(GET parts 1 name)
    install(FILES "${packaging}/debian/copyright" DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${part})
    install(FILES "${changelog}" RENAME changelog.Debian.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${part})
endforeach()
add_custom_target(packed ALL DEPENDS ${packed_files})

if(SERVOPANEL_QT)
    set(kiosk "${PROJECT_SOURCE_DIR}/packaging/kiosk")
    install(TARGETS servo-panel DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT panel)
    install(PROGRAMS "${kiosk}/kiosk" "${kiosk}/view" DESTINATION lib/servo-panel COMPONENT panel)
    install(FILES "${kiosk}/servo-panel.service" "${kiosk}/servo-panel-view.service"
        DESTINATION lib/systemd/system COMPONENT panel)
    install(FILES "${kiosk}/servo-panel.sysusers" DESTINATION lib/sysusers.d RENAME servo-panel.conf COMPONENT panel)
    install(FILES "${kiosk}/panel.conf" DESTINATION ${CMAKE_INSTALL_FULL_SYSCONFDIR}/servo-panel COMPONENT panel)
    install(TARGETS servopanel_designer DESTINATION ${CMAKE_INSTALL_LIBDIR}/qt6/plugins/designer COMPONENT dev)
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples/embed"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libservopanel-dev/examples COMPONENT dev)
    # The two pages that are left out are for those who have the sources.
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/servo-panel COMPONENT panel
            PATTERN mutation.md EXCLUDE PATTERN robustness.md EXCLUDE)
endif()

include(PanelPackages)
