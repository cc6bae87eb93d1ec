# Debian packages, one per component of the installation, made by ./package. The settings in /etc are only in their place
# when the project was configured for /usr, as the release preset does.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME servo-panel)
set(CPACK_PACKAGE_VENDOR "Servo panel")
set(CPACK_PACKAGE_CONTACT "Servo panel developers <servo-panel@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL tools demo dev)
if(SERVOPANEL_QT)
    list(APPEND CPACK_COMPONENTS_ALL panel)
endif()
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_DEBIAN_PANEL_PACKAGE_NAME servo-panel)
set(CPACK_DEBIAN_PANEL_PACKAGE_SECTION misc)
set(CPACK_COMPONENT_PANEL_DESCRIPTION "Operator panel for the servo drives of a production line
 Menu and parameter pages of servo drives, bound to process variables, with a
 kiosk that shows them on X11, Wayland or a bare frame buffer.")
set(CPACK_DEBIAN_PANEL_PACKAGE_DEPENDS "fonts-dejavu-core, fonts-wqy-microhei, procps, kbd")
set(CPACK_DEBIAN_PANEL_PACKAGE_RECOMMENDS "xserver-xorg, xinit, xauth, servo-panel-demo")
set(CPACK_DEBIAN_PANEL_PACKAGE_SUGGESTS
    "cage, xwayland, qt6-wayland, tigervnc-standalone-server, x11vnc, wayvnc, websockify, novnc, servo-panel-tools")
set(CPACK_DEBIAN_PANEL_PACKAGE_CONTROL_EXTRA
    "${PROJECT_SOURCE_DIR}/packaging/debian/conffiles;${PROJECT_SOURCE_DIR}/packaging/debian/postinst;${PROJECT_SOURCE_DIR}/packaging/debian/prerm;${PROJECT_SOURCE_DIR}/packaging/debian/postrm")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME servo-panel-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION misc)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "Engineer's tools for servo panels
 servo-replay plays scenarios on the controls without a screen and writes
 traces; servo-defs reads, writes and checks databases of definitions;
 servo-machine puts simulated machines on a broker; servo-journal shows what a
 panel has written; servo-params keeps parameters in files.")

set(CPACK_DEBIAN_DEMO_PACKAGE_NAME servo-panel-demo)
set(CPACK_DEBIAN_DEMO_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_DEMO_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DEMO_PACKAGE_SHLIBDEPS OFF)
set(CPACK_COMPONENT_DEMO_DESCRIPTION "Demonstration project for servo panels
 A processing line with twelve servo drives and a palletiser with three, with
 pictures, texts in four languages and a simulated machine.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libservopanel-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
    "nlohmann-json3-dev, mdbtools-dev, libmosquitto-dev, pkg-config, qt6-base-dev, libfreetype-dev, libwmf-dev")
set(CPACK_COMPONENT_DEV_DESCRIPTION "Servo controls for programs of one's own
 Static libraries, headers and the CMake package ServoPanel.")

include(CPack)
