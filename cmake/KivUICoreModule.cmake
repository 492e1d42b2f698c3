# How the project's own code is compiled. Linked privately, so that nothing of it reaches an embedder.
add_library(KivUICore_BuildSettings INTERFACE)
target_compile_options(
  KivUICore_BuildSettings
  INTERFACE
    $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Wshadow>
    $<$<AND:$<BOOL:${KIVUICORE_WERROR}>,$<CXX_COMPILER_ID:GNU,Clang,AppleClang>>:-Werror>)
if(KIVUICORE_SANITIZE)
  target_compile_options(
    KivUICore_BuildSettings INTERFACE -fsanitize=${KIVUICORE_SANITIZE} -fno-sanitize-recover=all
                                      -fno-omit-frame-pointer)
  target_link_options(KivUICore_BuildSettings INTERFACE -fsanitize=${KIVUICORE_SANITIZE})
endif()
if(KIVUICORE_COVERAGE)
  target_compile_options(KivUICore_BuildSettings INTERFACE --coverage)
  target_link_options(KivUICore_BuildSettings INTERFACE --coverage)
endif()

# kivuicore_module(<name> [INSTALLED] SOURCES <file>... HEADERS <file>... [NEEDED_HEADERS <file>...]
#                  [PRIVATE_HEADERS <file>...] [LINK <target>...])
#
# Defines the library of the current folder: the target KivUICore_<name> (KivUICore itself goes without a prefix)
# and its alias KivUICore::<name>. HEADERS are the public face, which an embedder names; they are included from the
# repository's root. NEEDED_HEADERS are installed with them because one of them needs each, and carry no promise.
# PRIVATE_HEADERS are for the project's own sources and are not installed.
# LINK names what the headers need, by alias. An INSTALLED module follows BUILD_SHARED_LIBS and is part of the
# package; any other is static.
function(kivuicore_module name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INSTALLED" "" "SOURCES;HEADERS;NEEDED_HEADERS;PRIVATE_HEADERS;LINK")
  set(target KivUICore_${name})
  if(name STREQUAL PROJECT_NAME)
    set(target ${PROJECT_NAME})
  endif()

  if(arg_INSTALLED)
    add_library(${target})
    set_property(GLOBAL APPEND PROPERTY KIVUICORE_INSTALLED_TARGETS ${target})
  else()
    add_library(${target} STATIC)
  endif()
  add_library(KivUICore::${name} ALIAS ${target})
  target_sources(
    ${target}
    PRIVATE ${arg_SOURCES} ${arg_PRIVATE_HEADERS}
    PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${arg_HEADERS} ${arg_NEEDED_HEADERS})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target} PUBLIC ${arg_LINK} PRIVATE $<BUILD_INTERFACE:KivUICore_BuildSettings>)
  # The whole of a module is its interface: an embedder that hides symbols by default must still find them in a
  # shared library.
  set_target_properties(
    ${target}
    PROPERTIES CXX_EXTENSIONS OFF
               CXX_VISIBILITY_PRESET default
               VISIBILITY_INLINES_HIDDEN OFF
               EXPORT_NAME ${name}
               VERSION ${PROJECT_VERSION}
               SOVERSION ${PROJECT_VERSION_MAJOR})
  kivuicore_installed_run_path(${target} "")
endfunction()

# kivuicore_installed_run_path(<target> <folder>)
#
# Has the installed target look for shared libraries at <folder> from where it lies itself: a program names only
# those that it uses, and they must find the others, wherever the whole is installed. Whoever gives
# CMAKE_INSTALL_RPATH knows better.
function(kivuicore_installed_run_path target folder)
  if(DEFINED CMAKE_INSTALL_RPATH)
    return()
  endif()
  set(origin "$ORIGIN")
  if(APPLE)
    set(origin "@loader_path")
  endif()
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "${origin}${folder}")
endfunction()

# kivuicore_tests(<name> [TIMEOUT <seconds>] SOURCES <file>... [LINK <target>...])
#
# Defines the GoogleTest executable KivUICore_<name>_tests of the current folder and hands each of its tests to
# CTest as <name>.<suite>.<test>, 60 seconds for each unless told otherwise.
function(kivuicore_tests name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "SOURCES;LINK")
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 60)
  endif()
  set(target KivUICore_${name}_tests)
  add_executable(${target} ${arg_SOURCES})
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_compile_features(${target} PRIVATE cxx_std_20)
  target_link_libraries(${target} PRIVATE ${arg_LINK} KivUICore_BuildSettings GTest::gmock GTest::gtest_main)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  # Takes longer to read than most tests do.
  target_precompile_headers(${target} PRIVATE <gtest/gtest.h>)
  gtest_discover_tests(
    ${target}
    TEST_PREFIX "${name}."
    DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT ${arg_TIMEOUT} LABELS ${name})
endfunction()
