# What is installed besides what the targets' folders install, by component; debian/rules makes a package of each.
# Included last: it looks at what was built.
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

# What is inside, for who has to know.
configure_file("${CMAKE_CURRENT_LIST_DIR}/tav-data-plugin.cdx.json.in" tav-data-plugin.cdx.json @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/tav-data-plugin.cdx.json"
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tav-data-plugin COMPONENT plugin)

# What page authors read and copy: they have the packages, not these sources.
set(devDocDir "${CMAKE_INSTALL_DATADIR}/doc/tav-data-plugin-dev")
install(FILES docs/page-plugin-guide.md docs/pages.md docs/compatibility.md docs/architecture.md docs/scenarios.md
    DESTINATION ${devDocDir} COMPONENT dev)
install(FILES docs/pictures/example-page.png DESTINATION ${devDocDir}/pictures COMPONENT dev)
install(DIRECTORY share/sanitizers DESTINATION ${CMAKE_INSTALL_DATADIR}/tavsec COMPONENT dev)
install(DIRECTORY examples/page-plugin DESTINATION ${devDocDir}/examples COMPONENT dev
    PATTERN build EXCLUDE)

set(shareDir "${PROJECT_SOURCE_DIR}/share")
if(TARGET tavctl)
    install(DIRECTORY "${shareDir}/demo" DESTINATION ${CMAKE_INSTALL_DATADIR}/tavsec COMPONENT tavctl
        USE_SOURCE_PERMISSIONS)
    install(DIRECTORY "${shareDir}/schemas" DESTINATION ${CMAKE_INSTALL_DATADIR}/tavsec COMPONENT tavctl)
    install(FILES "${shareDir}/man/tavctl.1" DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tavctl)
    set(completionDir "${shareDir}/completion")
    install(FILES "${completionDir}/tavctl.bash"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME tavctl COMPONENT tavctl)
    install(FILES "${completionDir}/_tavctl"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT tavctl)
    install(FILES "${completionDir}/tavctl.fish"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT tavctl)
endif()
if(TARGET tavdesk)
    install(FILES "${shareDir}/man/tavdesk.1" DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tavdesk)
    set(application org.tavsec.tavdesk)
    install(FILES "${shareDir}/tavdesk/${application}.desktop"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT tavdesk)
    install(FILES "${shareDir}/tavdesk/${application}.metainfo.xml"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT tavdesk)
    install(FILES "${shareDir}/tavdesk/${application}.svg"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT tavdesk)
endif()
