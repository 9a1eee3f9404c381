# One way to make every target: warnings, sanitizers, include root.

function(paperway_compile_options target)
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow>)
  # GCC 12 takes the copies of std::string's operator+ for overlapping ones, or for endless ones.
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT CMAKE_BUILD_TYPE STREQUAL Debug)
    target_compile_options(${target} PRIVATE -Wno-restrict -Wno-stringop-overflow -Wno-array-bounds)
  endif()
  if(PAPERWAY_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(PAPERWAY_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${PAPERWAY_SANITIZE} -fno-omit-frame-pointer
                                             -fno-sanitize-recover=all)
    target_link_options(${target} PRIVATE -fsanitize=${PAPERWAY_SANITIZE})
  endif()
endfunction()

set(PAPERWAY_STANDARD_HEADERS
  <algorithm> <array> <charconv> <chrono> <cmath> <cstdint> <cstdio> <cstdlib> <cstring> <filesystem>
  <fstream> <functional> <iostream> <map> <memory> <optional> <stdexcept> <string> <string_view>
  <system_error> <utility> <vector>)
# Of windows; <QtWidgets>, which has them all, takes twice as long.
set(PAPERWAY_QT_HEADERS <QApplication> <QComboBox> <QKeyEvent> <QLineEdit> <QMenu> <QMessageBox>
  <QPainter> <QScrollBar> <QTimer>)

# paperway_precompile(target headers... ): the standard headers and these are compiled once for the
# target. Every source still includes what it needs: PAPERWAY_PCH=OFF builds without.
function(paperway_precompile target)
  if(PAPERWAY_PCH)
    target_precompile_headers(${target} PRIVATE ${PAPERWAY_STANDARD_HEADERS} ${ARGN})
  endif()
endfunction()

# The same for a target whose compile flags are those of `owner`, which has them already.
function(paperway_precompiled_by target owner)
  if(PAPERWAY_PCH)
    target_precompile_headers(${target} REUSE_FROM ${owner})
  endif()
endfunction()

# paperway_library(name folder headers... ): a static library of every .cpp below folder, known as
# paperway::name, whose headers are included from the root that holds the folder; `headers` are precompiled.
function(paperway_library name folder)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.h)
  if(NOT sources)
    file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/empty_${name}.cpp "")
    set(sources ${CMAKE_CURRENT_BINARY_DIR}/empty_${name}.cpp)
  endif()
  add_library(paperway_${name} STATIC ${sources})
  set_target_properties(paperway_${name} PROPERTIES LINKER_LANGUAGE CXX)
  add_library(paperway::${name} ALIAS paperway_${name})
  set_target_properties(paperway_${name} PROPERTIES EXPORT_NAME ${name}
                                                    POSITION_INDEPENDENT_CODE ON)
  target_include_directories(paperway_${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(paperway_${name} PUBLIC cxx_std_20)
  paperway_compile_options(paperway_${name})
  if(name STREQUAL core OR ARGN)
    paperway_precompile(paperway_${name} ${ARGN})
  else()
    paperway_precompiled_by(paperway_${name} paperway_core)
  endif()
endfunction()
