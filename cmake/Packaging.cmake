# What is installed and how it becomes Debian packages: one component a package.
#
#   common  libtavcommon1        the shared library
#   plugin  tav-data-plugin      the plugin
#   dev     tav-data-plugin-dev  what authors of page plugins compile against
#   tavctl  tavctl               the tool, its manual, the demo installation, scenarios
#   tavdesk tavdesk              the development client's window
#
# "./dev package" builds them. By hand: configure with -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_SKIP_INSTALL_RPATH=ON (the
# library then lies where the loader looks anyway), build, run cpack. Included last: it looks at what was built.
include(CMakePackageConfigHelpers)

# What find_package(TavDataPlugin) and pkg-config find. Tav::Common comes from the package TavCommon beside it.
set(packageDir "${CMAKE_INSTALL_LIBDIR}/cmake/TavDataPlugin")
install(EXPORT TavDataPluginTargets NAMESPACE Tav:: DESTINATION ${packageDir} COMPONENT dev)
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/TavDataPluginConfig.cmake.in" TavDataPluginConfig.cmake
    INSTALL_DESTINATION ${packageDir}
    PATH_VARS TAV_PLUGIN_DIR
)
write_basic_package_version_file(TavDataPluginConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/TavDataPluginConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/TavDataPluginConfigVersion.cmake"
    DESTINATION ${packageDir}
    COMPONENT dev
)
file(RELATIVE_PATH prefixFromPkgConfig "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
string(REGEX REPLACE "/$" "" prefixFromPkgConfig "${prefixFromPkgConfig}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/tav-data-plugin.pc.in" tav-data-plugin.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/tav-data-plugin.pc"
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
install(FILES "${CMAKE_CURRENT_LIST_DIR}/debian/tav-data-plugin-dev.lintian-overrides"
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT dev RENAME tav-data-plugin-dev)

# tav_install_compressed(FILE DIRECTORY NAME COMPONENT): installs FILE as NAME.gz, if there is one when it is installed.
# The bytes depend on the file alone.
function(tav_install_compressed file directory name component)
    set(compressed "${CMAKE_CURRENT_BINARY_DIR}/compressed/${component}/${name}.gz")
    install(CODE "
        if(EXISTS \"${file}\")
            file(MAKE_DIRECTORY \"${CMAKE_CURRENT_BINARY_DIR}/compressed/${component}\")
            execute_process(COMMAND gzip -9nc \"${file}\" OUTPUT_FILE \"${compressed}\" COMMAND_ERROR_IS_FATAL ANY)
            file(INSTALL \"${compressed}\" DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${directory}\")
        endif()"
        COMPONENT ${component}
    )
endfunction()

# tav_package(COMPONENT NAME): the files that every Debian package has.
function(tav_package component name)
    set(docDir "${CMAKE_INSTALL_DATADIR}/doc/${name}")
    install(FILES "${PROJECT_SOURCE_DIR}/cmake/debian/copyright" DESTINATION ${docDir} COMPONENT ${component})
    tav_install_compressed("${PROJECT_SOURCE_DIR}/cmake/debian/changelog" ${docDir} changelog ${component})
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name} PARENT_SCOPE)
endfunction()

tav_package(plugin tav-data-plugin)
tav_package(dev tav-data-plugin-dev)
# What page authors read and copy: they have the packages, not these sources.
set(devDocDir "${CMAKE_INSTALL_DATADIR}/doc/tav-data-plugin-dev")
install(FILES docs/page-plugin-guide.md docs/compatibility.md docs/architecture.md docs/scenarios.md
    DESTINATION ${devDocDir} COMPONENT dev)
install(DIRECTORY examples/page-plugin DESTINATION ${devDocDir}/examples COMPONENT dev
    PATTERN build EXCLUDE)
set(CPACK_COMPONENTS_ALL plugin dev)
if(TARGET TavCommon)
    tav_package(common libtavcommon1)
    list(APPEND CPACK_COMPONENTS_ALL common)
    set(CPACK_COMPONENT_PLUGIN_DEPENDS common)
    set(CPACK_COMPONENT_DEV_DEPENDS common)
endif()
if(TARGET tavctl)
    tav_package(tavctl tavctl)
    list(APPEND CPACK_COMPONENTS_ALL tavctl)
    set(CPACK_COMPONENT_TAVCTL_DEPENDS plugin)
    if(TARGET TavCommon)
        list(PREPEND CPACK_COMPONENT_TAVCTL_DEPENDS common)
    endif()
    set(shareDir "${PROJECT_SOURCE_DIR}/share")
    install(DIRECTORY "${shareDir}/demo" DESTINATION ${CMAKE_INSTALL_DATADIR}/tavsec COMPONENT tavctl
        USE_SOURCE_PERMISSIONS)
    # A pattern, so that a folder that is not there is no mistake.
    install(DIRECTORY "${shareDir}/" DESTINATION ${CMAKE_INSTALL_DATADIR}/tavsec COMPONENT tavctl
        FILES_MATCHING PATTERN "schemas/*" PATTERN demo EXCLUDE PATTERN man EXCLUDE PATTERN bash-completion EXCLUDE)
    tav_install_compressed("${shareDir}/man/tavctl.1" ${CMAKE_INSTALL_MANDIR}/man1 tavctl.1 tavctl)
    install(FILES "${shareDir}/bash-completion/tavctl"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tavctl OPTIONAL)
endif()
if(TARGET tavdesk)
    tav_package(tavdesk tavdesk)
    list(APPEND CPACK_COMPONENTS_ALL tavdesk)
    set(CPACK_COMPONENT_TAVDESK_DEPENDS ${CPACK_COMPONENT_TAVCTL_DEPENDS})
    tav_install_compressed("${shareDir}/man/tavdesk.1" ${CMAKE_INSTALL_MANDIR}/man1 tavdesk.1 tavdesk)
    set(application org.tavsec.tavdesk)
    install(FILES "${shareDir}/tavdesk/${application}.desktop"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT tavdesk)
    install(FILES "${shareDir}/tavdesk/${application}.metainfo.xml"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT tavdesk)
    install(FILES "${shareDir}/tavdesk/${application}.svg"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT tavdesk)
endif()

file(STRINGS "${CMAKE_CURRENT_LIST_DIR}/debian/changelog" newestEntry LIMIT_COUNT 1)
if(NOT newestEntry MATCHES "\\(${PROJECT_VERSION}\\)")
    message(FATAL_ERROR "cmake/debian/changelog has no entry for version ${PROJECT_VERSION}: \"${newestEntry}\"")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGE_NAME tav-data-plugin)
set(CPACK_PACKAGE_VENDOR "the Tav data plugin developers")
set(CPACK_PACKAGE_CONTACT "the Tav data plugin developers <tav-data-plugin@example.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
if(CMAKE_CROSSCOMPILING AND CMAKE_SYSTEM_PROCESSOR STREQUAL "aarch64")
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
endif()

# Libraries of other packages are found by the tool; those of our own at the very version, since the plugin, the
# library and the tool share inline code that no version number tells apart.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# What packages of pages that are linked to the library are to depend on, and that the loader's cache is to be renewed.
file(CONFIGURE OUTPUT control/shlibs CONTENT "libTavCommon ${PROJECT_VERSION_MAJOR} libtavcommon1 (>= ${PROJECT_VERSION})\n")
file(CONFIGURE OUTPUT control/triggers CONTENT "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_COMMON_PACKAGE_CONTROL_EXTRA
    "${CMAKE_CURRENT_BINARY_DIR}/control/shlibs;${CMAKE_CURRENT_BINARY_DIR}/control/triggers")

# The generated message headers refuse every other minor version of the message library.
string(REGEX MATCH "^([0-9]+)\\.([0-9]+)" protobufMinor "${Protobuf_VERSION}")
math(EXPR protobufNextMinor "${CMAKE_MATCH_2} + 1")
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
    "qtbase5-dev (>= 5.15), libprotobuf-dev (>= ${protobufMinor}), libprotobuf-dev (<< ${CMAKE_MATCH_1}.${protobufNextMinor})")
set(CPACK_DEBIAN_DEV_PACKAGE_RECOMMENDS "tav-data-plugin (= ${PROJECT_VERSION}), cmake, pkgconf")
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS tavctl)

set(CPACK_DEBIAN_COMMON_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PLUGIN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_TAVCTL_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_TAVDESK_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_TAVDESK_PACKAGE_RECOMMENDS "qttranslations5-l10n, tavctl")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

# Each description's first line is the synopsis; the project's must not be put before it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_COMPONENT_COMMON_DESCRIPTION "shared library of the host-security desktop client
Object registry, event bus, page-change signal, logger, configuration readers
and the messages of the backend, which the client, its data plugin and its
page plugins share.")
set(CPACK_COMPONENT_PLUGIN_DESCRIPTION "data plugin of the host-security desktop client
Model layer of the desktop client of a host-security agent, as a Qt 5 plugin.
It puts fifteen managers into the client's object registry: the navigation
catalogue, the pictures, the page selection, and one model for each area of
the agent. All but the pictures may be used from any thread.")
set(CPACK_COMPONENT_DEV_DESCRIPTION "development files for page plugins of the security client
Interfaces and shared records of the data plugin, headers of the common
library, generated message headers and the message definitions, with a CMake
package and a pkg-config file. A page plugin needs nothing else to compile.
A guide for its authors and an example to copy are included.")
set(CPACK_COMPONENT_TAVCTL_DESCRIPTION "stand-in for the host-security desktop client
Loads the data plugin as the client does and shows what it registers, what the
navigation holds, and what the model of each page holds once a backend has
answered. For authors of page plugins and for integrators, who try their
configuration with it; an installation to try it on is included.")
set(CPACK_COMPONENT_TAVDESK_DESCRIPTION "development client for page plugins of the security client
Shows the data plugin of the host-security desktop client at work: its
navigation, its pages with what their managers hold, all calls and page
changes. It is fed from this machine or plays recorded scenarios, and shows
page plugins under development.")

include(CPack)
