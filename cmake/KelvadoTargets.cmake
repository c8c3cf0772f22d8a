# The settings that every target of Kelvado shares.

add_library(kelvado_settings INTERFACE)
target_compile_options(kelvado_settings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
target_compile_definitions(kelvado_settings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(kelvado_settings INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(KELVADO_SANITIZE)
  target_compile_options(kelvado_settings INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(kelvado_settings INTERFACE -fsanitize=address,undefined)
endif()

# The headers that nearly every file of a target includes.
function(kelvado_precompile name)
  get_target_property(uses ${name} LINK_LIBRARIES)
  set(headers <QByteArray> <QFile> <QFileInfo> <QHash> <QList> <QString> <QStringList> <QVariant> <algorithm> <memory> <optional> <vector>)
  if("Qt6::Widgets" IN_LIST uses)
    list(APPEND headers <QtWidgets>)
  endif()
  target_precompile_headers(${name} PRIVATE ${headers})
endfunction()

# kelvado_library(NAME SOURCES … USES …): a static library of one folder. A logic library names no Widgets module,
# so that whatever decides something can be tested without a window.
function(kelvado_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC kelvado_settings ${ARG_USES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON)
  kelvado_precompile(${name})
endfunction()

# kelvado_test(NAME SOURCES … USES …): a GoogleTest program that runs without a display.
function(kelvado_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE kelvado_settings ${ARG_USES} kelvado_test_support GTest::gmock)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_precompile_headers(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests/support/Printers.h <QString> <QStringList> <gmock/gmock.h> <gtest/gtest.h> <memory> <vector>)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QTWEBENGINE_CHROMIUM_FLAGS=--disable-gpu;LC_ALL=C.UTF-8;ASAN_OPTIONS=detect_leaks=0")
endfunction()
