# Debian packages, as Debian ships them:   cpack -G DEB
#   nilo-tuner           the plug-in
#   nilo-tuner-devtools  the host stand-in, the simulator and the host app
# each stripped, with its debug symbols in a -dbgsym package of its own, a
# copyright file and a changelog.

# The version is the project's; a build from a git checkout carries where it
# came from, and sorts before the release it leads to: 0.1~git42.g1a2b3c4d.
set(TUNER_PACKAGE_VERSION ${PROJECT_VERSION})
set(TUNER_SOURCE_REVISION "version ${PROJECT_VERSION}")
string(TIMESTAMP TUNER_CHANGELOG_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
find_package(Git QUIET)
if(GIT_FOUND AND EXISTS ${PROJECT_SOURCE_DIR}/.git)
    execute_process(COMMAND ${GIT_EXECUTABLE} rev-list --count HEAD
                    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE commits
                    OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    execute_process(COMMAND ${GIT_EXECUTABLE} describe --always --abbrev=8 --dirty
                    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE described
                    OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    execute_process(COMMAND ${GIT_EXECUTABLE} log -1 --format=%cD
                    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE committed
                    OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    if(commits AND described)
        string(REPLACE "-dirty" ".dirty" described_version "${described}")
        set(TUNER_PACKAGE_VERSION "${PROJECT_VERSION}~git${commits}.g${described_version}")
        set(TUNER_SOURCE_REVISION "commit ${described}")
    endif()
    if(committed)
        set(TUNER_CHANGELOG_DATE "${committed}")
    endif()
endif()

# Debian policy: a copyright file and the changelog, compressed, in each
# package's documentation folder.
configure_file(${PROJECT_SOURCE_DIR}/packaging/changelog.in ${PROJECT_BINARY_DIR}/packaging/changelog @ONLY)
add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/packaging/changelog.gz
                   COMMAND gzip -9n -c changelog > changelog.gz
                   DEPENDS ${PROJECT_BINARY_DIR}/packaging/changelog
                   WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/packaging)
add_custom_target(tuner_package_docs ALL DEPENDS ${PROJECT_BINARY_DIR}/packaging/changelog.gz)
foreach(component_and_package IN ITEMS "tuner;nilo-tuner" "hostapp;nilo-tuner-devtools")
    list(GET component_and_package 0 component)
    list(GET component_and_package 1 package)
    install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright ${PROJECT_BINARY_DIR}/packaging/changelog.gz
            DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
endforeach()

# Started on demand, as a head unit starts its services: a D-Bus activation
# file for each bus name the simulator and the host app own, naming a systemd
# user unit (restarted on failure) that runs it. The host app's desktop file
# names it to desktop shells, and its media player points there.
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(TUNER_PACKAGED_BINDIR ${CPACK_PACKAGING_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR})
set(TUNER_PACKAGED_DOCDIR ${CPACK_PACKAGING_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/doc/nilo-tuner-devtools)
foreach(service com.nilo.mcu com.nilo.system nilo.TunerHost nilo-sim nilo-tuner-host)
    configure_file(${PROJECT_SOURCE_DIR}/packaging/services/${service}.service.in
                   ${PROJECT_BINARY_DIR}/packaging/services/${service}.service @ONLY)
endforeach()
install(FILES ${PROJECT_BINARY_DIR}/packaging/services/com.nilo.mcu.service
              ${PROJECT_BINARY_DIR}/packaging/services/com.nilo.system.service
        DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services COMPONENT sim)
install(FILES ${PROJECT_BINARY_DIR}/packaging/services/nilo.TunerHost.service
        DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services COMPONENT hostapp)
install(FILES ${PROJECT_BINARY_DIR}/packaging/services/nilo-sim.service
        DESTINATION lib/systemd/user COMPONENT sim)
install(FILES ${PROJECT_BINARY_DIR}/packaging/services/nilo-tuner-host.service
        DESTINATION lib/systemd/user COMPONENT hostapp)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/nilo-tuner-host.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT hostapp)

set(CPACK_PACKAGE_NAME nilo-tuner)
set(CPACK_PACKAGE_VERSION ${TUNER_PACKAGE_VERSION})
set(CPACK_PACKAGE_VENDOR "Nilo")
set(CPACK_PACKAGE_CONTACT "Nilo tuner team <tuner@nilo.invalid>")
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# A cross build's packages are for the target, not for the build machine.
if(CMAKE_CROSSCOMPILING AND CMAKE_LIBRARY_ARCHITECTURE)
    execute_process(COMMAND dpkg-architecture -t ${CMAKE_LIBRARY_ARCHITECTURE} -qDEB_HOST_ARCH
                    OUTPUT_VARIABLE target_architecture OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${target_architecture})
endif()
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
# The host libraries are our own: dpkg-shlibdeps finds them in the build tree
# and leaves them to the package that provides the host framework.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/host)
# The first line of a description is its synopsis.
set(CPACK_DEBIAN_TUNER_PACKAGE_NAME nilo-tuner)
set(CPACK_DEBIAN_TUNER_DESCRIPTION "FM/AM radio tuner plug-in of the Nilo head unit
The tuner screen, its forms and images, loaded by the head unit's host
framework from its plug-in folder.")
set(CPACK_DEBIAN_TUNER_PACKAGE_DEPENDS "nilo-host-framework")
set(CPACK_DEBIAN_DEVTOOLS_PACKAGE_NAME nilo-tuner-devtools)
set(CPACK_DEBIAN_DEVTOOLS_DESCRIPTION "Host stand-in, simulator and host app for the Nilo tuner
nilo-sim simulates the radio, MCU and source services; nilo-tuner-host loads
the tuner plug-in in an 800 x 480 window, as the head unit's host does; the
host framework stand-in provides the libraries both load.")
set(CPACK_DEBIAN_DEVTOOLS_PACKAGE_PROVIDES "nilo-host-framework")
set(CPACK_DEBIAN_DEVTOOLS_PACKAGE_RECOMMENDS "nilo-tuner, dbus-daemon")
include(CPack)
cpack_add_component_group(devtools)
cpack_add_component(tuner DISPLAY_NAME "Tuner plug-in")
cpack_add_component(host DISPLAY_NAME "Host framework stand-in" GROUP devtools)
cpack_add_component(sim DISPLAY_NAME "Service simulator" GROUP devtools)
cpack_add_component(hostapp DISPLAY_NAME "Host app" GROUP devtools)
