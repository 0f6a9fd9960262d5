# The Debian packages: build VantoSetting, vanto-hand, vantoctl and vanto_package_files, then run
# `cpack -G DEB`.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${package})
set(CPACK_PACKAGE_VENDOR "VantoSetting developers")
set(CPACK_PACKAGE_CONTACT "VantoSetting developers <vantosetting@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "configure and move a robotic hand over a serial port")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL ${package} vantoctl)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_VANTOSETTING_PACKAGE_NAME ${package})
set(CPACK_DEBIAN_VANTOCTL_PACKAGE_NAME vantoctl)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_COMPONENT_VANTOCTL_DESCRIPTION
"vantoctl finds robotic hands with six motors on a serial bus, reads and writes
their parameters, moves their fingers, plays sequences and updates firmware.
It needs no graphical libraries. It supports both protocols of the hand,
SerialCtrl and Modbus RTU, and gives programs in other languages access to
hands over one open port.")
set(CPACK_COMPONENT_VANTOSETTING_DESCRIPTION
"VantoSetting finds robotic hands with six motors on a serial bus, shows and
changes their settings, moves their fingers and plays sequences of poses. It
supports both protocols of the hand, SerialCtrl and Modbus RTU.
.
The package includes a simulated hand for trying everything without hardware.")
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# dpkg-shlibdeps does not see the plug-in for the SVG images of the themes, which is loaded at run
# time. Since Debian 13 it is a separate package.
execute_process(COMMAND dpkg-query --search */imageformats/libqsvg.so
    OUTPUT_VARIABLE svg_plugin ERROR_QUIET)
if(svg_plugin MATCHES "^([a-z0-9-]+):")
    set(svg_package ${CMAKE_MATCH_1})
else()
    set(svg_package libqt6svg6)
endif()
set(CPACK_DEBIAN_VANTOCTL_PACKAGE_SUGGESTS python3)
# Builds of vantosetting from before vantoctl was a package contain the udev rules. Some have the
# version of today.
set(CPACK_DEBIAN_VANTOCTL_PACKAGE_BREAKS "${package} (<< ${PROJECT_VERSION})")
set(CPACK_DEBIAN_VANTOCTL_PACKAGE_REPLACES "${package} (<= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_VANTOSETTING_PACKAGE_DEPENDS "${svg_package}, vantoctl (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_VANTOSETTING_PACKAGE_RECOMMENDS
    "ca-certificates, fonts-dejavu-core, fonts-noto-cjk, qt6-translations-l10n, qt6-wayland")

include(CPack)
