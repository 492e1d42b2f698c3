include(CMakePackageConfigHelpers)

get_property(installedTargets GLOBAL PROPERTY KIVUICORE_INSTALLED_TARGETS)
if(NOT installedTargets)
  return()
endif()
set(headerFolder "${CMAKE_INSTALL_INCLUDEDIR}/KivUICore")
set(packageFolder "${CMAKE_INSTALL_LIBDIR}/cmake/KivUICore")
