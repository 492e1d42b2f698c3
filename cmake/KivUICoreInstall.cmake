include(CMakePackageConfigHelpers)

get_property(installedTargets GLOBAL PROPERTY KIVUICORE_INSTALLED_TARGETS)
set(headerFolder "${CMAKE_INSTALL_INCLUDEDIR}/KivUICore")
set(packageFolder "${CMAKE_INSTALL_LIBDIR}/cmake/KivUICore")

install(
  TARGETS ${installedTargets}
  EXPORT KivUICoreTargets
  FILE_SET HEADERS DESTINATION "${headerFolder}")
install(EXPORT KivUICoreTargets NAMESPACE KivUICore:: DESTINATION "${packageFolder}")

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/KivUICoreConfig.cmake.in"
                              "${PROJECT_BINARY_DIR}/KivUICoreConfig.cmake" INSTALL_DESTINATION "${packageFolder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KivUICoreConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/KivUICoreConfig.cmake" "${PROJECT_BINARY_DIR}/KivUICoreConfigVersion.cmake"
        DESTINATION "${packageFolder}")

# Relative to the .pc file, so that an installed tree can be moved.
file(RELATIVE_PATH pkgConfigPrefix "${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig"
     "${CMAKE_INSTALL_PREFIX}")
# A linker takes from a static library what those named before it still need, so users stand before what they use.
set(pkgConfigLibraries "")
foreach(target IN LISTS installedTargets)
  string(PREPEND pkgConfigLibraries " -l${target}")
endforeach()
# Shared libraries that lie where no system looks for them are found where they were linked.
set(pkgConfigRunPath "")
if(BUILD_SHARED_LIBS AND NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  set(pkgConfigRunPath " -Wl,-rpath,\${libdir}")
endif()
configure_file("${PROJECT_SOURCE_DIR}/cmake/kivuicore.pc.in" "${PROJECT_BINARY_DIR}/kivuicore.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/kivuicore.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DOCDIR}")

if(TARGET kivplayer)
  file(RELATIVE_PATH libraryFolder "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
  kivuicore_installed_run_path(kivplayer "/${libraryFolder}")
  install(TARGETS kivplayer)
endif()
