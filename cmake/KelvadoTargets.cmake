# The settings that every target of Kelvado shares.

add_library(kelvado_settings INTERFACE)
target_compile_options(kelvado_settings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
target_compile_definitions(kelvado_settings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(kelvado_settings INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(KELVADO_SANITIZE)
  # The web engine has no run-time type information, so its objects cannot be checked for their types; it also frees with sizes of its own.
  target_compile_options(kelvado_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(kelvado_settings INTERFACE -fsanitize=address,undefined)
endif()

# The headers that nearly every file includes, precompiled once for each kind of target: what reuses them is built by the same options.
set(KELVADO_HEADERS <QByteArray> <QFile> <QFileInfo> <QHash> <QList> <QString> <QStringList> <QVariant> <algorithm> <memory> <optional> <vector>)
# Tests are compiled for a quick build.
set(KELVADO_TEST_OPTIONS $<$<CONFIG:Release>:-O0>)
file(WRITE ${CMAKE_BINARY_DIR}/headers.cpp "// Only its precompiled headers are of use.\n")

function(kelvado_headers name)
  cmake_parse_arguments(ARG "" "" "HEADERS;USES;OPTIONS" ${ARGN})
  add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/headers.cpp)
  target_link_libraries(${name} PRIVATE kelvado_settings ${ARG_USES})
  target_compile_options(${name} PRIVATE ${ARG_OPTIONS})
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

kelvado_headers(kelvado_logic_headers HEADERS ${KELVADO_HEADERS} USES Qt6::Core)
kelvado_headers(kelvado_window_headers HEADERS ${KELVADO_HEADERS} <QtWidgets> USES Qt6::Widgets)
kelvado_headers(kelvado_test_headers HEADERS ${CMAKE_SOURCE_DIR}/tests/support/Printers.h ${KELVADO_HEADERS} <gmock/gmock.h> <gtest/gtest.h>
  USES Qt6::Core GTest::gmock OPTIONS ${KELVADO_TEST_OPTIONS})

# kelvado_library(NAME SOURCES … USES …): a static library of one folder. A logic library names no Widgets module,
# so that whatever decides something can be tested without a window.
function(kelvado_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC kelvado_settings ${ARG_USES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON)
  if("Qt6::Widgets" IN_LIST ARG_USES)
    target_precompile_headers(${name} REUSE_FROM kelvado_window_headers)
  else()
    target_precompile_headers(${name} REUSE_FROM kelvado_logic_headers)
  endif()
endfunction()

# kelvado_test(NAME SOURCES … USES …): a GoogleTest program that runs without a display.
function(kelvado_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE kelvado_settings ${ARG_USES} kelvado_test_support GTest::gmock)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_compile_options(${name} PRIVATE ${KELVADO_TEST_OPTIONS})
  target_precompile_headers(${name} REUSE_FROM kelvado_test_headers)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QTWEBENGINE_CHROMIUM_FLAGS=--disable-gpu;LC_ALL=C.UTF-8;ASAN_OPTIONS=detect_leaks=0:new_delete_type_mismatch=0")
endfunction()
