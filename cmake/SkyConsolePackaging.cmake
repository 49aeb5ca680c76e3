# Install layout and the two Debian packages (scripts/package.sh builds them):
#   skyconsole            the hub, its private UI library, desktop entry,
#                         AppStream metadata, icon and deployment file
#   skyconsole-emulators  the stand-ins for the cloud, the aircraft, the
#                         sibling applications and the base station
# Everything goes below /usr except the deployment file, which is a
# configuration file in /etc/skyconsole.
include(GNUInstallDirs)

set(SKY_PRIVATE_LIBDIR ${CMAKE_INSTALL_LIBDIR}/skyconsole)

function(sky_install_hub)
  set_target_properties(skyconsole PROPERTIES INSTALL_RPATH "$ORIGIN/../${SKY_PRIVATE_LIBDIR}")
  install(TARGETS skyconsole RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT hub)
  install(TARGETS LmCarrowmereUI LIBRARY DESTINATION ${SKY_PRIVATE_LIBDIR} NAMELINK_SKIP COMPONENT hub)
  install(FILES ${CMAKE_SOURCE_DIR}/packaging/skyconsole.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT hub)
  install(FILES ${CMAKE_SOURCE_DIR}/packaging/io.github.skyconsole.skyconsole.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT hub)
  install(FILES ${CMAKE_SOURCE_DIR}/packaging/skyconsole.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/128x128/apps COMPONENT hub)
  install(FILES ${CMAKE_SOURCE_DIR}/packaging/deployment.ini
          DESTINATION ${CMAKE_INSTALL_FULL_SYSCONFDIR}/skyconsole COMPONENT hub)
endfunction()

function(sky_install_emulators)
  foreach(target ${ARGN})
    if(TARGET ${target})
      install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT emulators)
    endif()
  endforeach()
endfunction()

sky_install_hub()
sky_install_emulators(skycloud skysim skysibling skyprojectgen skybase)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME skyconsole)
set(CPACK_PACKAGE_VENDOR "SkyConsole developers")
set(CPACK_PACKAGE_CONTACT "SkyConsole developers <skyconsole@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL hub emulators)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_HUB_PACKAGE_NAME skyconsole)
set(CPACK_DEBIAN_HUB_DESCRIPTION "Desktop hub for survey-drone crews
 Signs in to the maker's cloud, keeps survey projects in step with it and
 shares them, starts the suite's other applications, watches the connected
 aircraft, uploads its flight logs, keeps the no-fly-zone database current
 and sets up GNSS RTK base stations.")
set(CPACK_DEBIAN_HUB_PACKAGE_RECOMMENDS "fonts-noto-cjk")
# Qt loads its SQLite driver as a plug-in, which shlibdeps cannot see.
set(CPACK_DEBIAN_HUB_PACKAGE_DEPENDS "libqt5sql5-sqlite, qttranslations5-l10n")
set(CPACK_DEBIAN_HUB_PACKAGE_CONTROL_EXTRA ${CMAKE_SOURCE_DIR}/packaging/conffiles)
set(CPACK_DEBIAN_EMULATORS_PACKAGE_NAME skyconsole-emulators)
set(CPACK_DEBIAN_EMULATORS_DESCRIPTION "Emulated cloud, aircraft, base station and sibling applications for SkyConsole
 Stand-ins for everything SkyConsole talks to, so that the hub can be tried
 and tested on one machine: skycloud, skysim, skysibling, skyprojectgen and
 skybase.")
# The base station serves its files through Debian's FTP server module.
set(CPACK_DEBIAN_EMULATORS_PACKAGE_DEPENDS "python3-pyftpdlib, libqt5sql5-sqlite")
include(CPack)
