# Functions that give every target the same warnings, sanitizers and include rule.

set(VANTO_SANITIZERS "" CACHE STRING "Sanitizers for -fsanitize=, e.g. address,undefined")

add_library(vanto_build_flags INTERFACE)
target_compile_options(vanto_build_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(vanto_build_flags INTERFACE
    QT_NO_FOREACH QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_DEPRECATED_WARNINGS)
if(VANTO_SANITIZERS MATCHES address)
    # Only GCC has a macro of its own for this.
    target_compile_definitions(vanto_build_flags INTERFACE VANTO_ADDRESS_SANITIZER)
endif()
if(VANTO_SANITIZERS)
    target_compile_options(vanto_build_flags INTERFACE
        -fsanitize=${VANTO_SANITIZERS} -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(vanto_build_flags INTERFACE -fsanitize=${VANTO_SANITIZERS})
endif()

# vanto_add_library(NAME SOURCES...): a static library that exports only its own folder, so that a
# lower layer cannot include a header of a higher one.
function(vanto_add_library name)
    add_library(${name} STATIC ${ARGN})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE vanto_build_flags)
endfunction()

# vanto_add_program(NAME SOURCES...): an executable with the same build flags.
function(vanto_add_program name)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE vanto_build_flags)
endfunction()

option(VANTO_QUICK_BUILD "Precompile the headers of Qt, and link with mold if it is installed" OFF)
if(VANTO_QUICK_BUILD)
    find_program(VANTO_MOLD mold)
    if(VANTO_MOLD)
        target_link_options(vanto_build_flags INTERFACE -fuse-ld=mold)
    endif()
endif()

# vanto_header_library(NAME LIBRARIES LIBRARY... HEADERS HEADER...): headers that take longer to parse
# than a file that uses them takes to compile, precompiled for other targets.
function(vanto_header_library name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "LIBRARIES;HEADERS")
    set(source ${CMAKE_BINARY_DIR}/${name}.cpp)
    if(NOT EXISTS ${source})
        file(WRITE ${source} "")
    endif()
    add_library(${name} OBJECT ${source})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(${name} PRIVATE vanto_build_flags ${ARG_LIBRARIES})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

set(VANTO_CORE_HEADERS <QCoreApplication> <QDateTime> <QDebug> <QElapsedTimer> <QFile> <QJsonArray>
    <QJsonDocument> <QJsonObject> <QList> <QPointer> <QProcess> <QRegularExpression> <QTemporaryDir>
    <QTimer> <algorithm> <array> <functional> <map> <memory> <optional> <variant> <vector>)
set(VANTO_WINDOW_HEADERS ${VANTO_CORE_HEADERS} <QApplication> <QComboBox> <QDialog> <QLabel> <QLineEdit>
    <QMainWindow> <QMessageBox> <QPushButton> <QSlider> <QTableWidget> <QTabWidget>)

# vanto_precompile_headers(TARGET...): for targets that use Qt Widgets. A build without
# VANTO_QUICK_BUILD detects missing includes.
function(vanto_precompile_headers)
    if(NOT VANTO_QUICK_BUILD)
        return()
    endif()
    if(NOT TARGET vanto_window_headers)
        vanto_header_library(vanto_window_headers
            LIBRARIES Qt6::Widgets HEADERS ${VANTO_WINDOW_HEADERS})
    endif()
    foreach(target IN LISTS ARGV)
        target_precompile_headers(${target} REUSE_FROM vanto_window_headers)
    endforeach()
endfunction()

# vanto_precompile_core_headers(TARGET...): the same for targets without Qt Widgets.
function(vanto_precompile_core_headers)
    if(NOT VANTO_QUICK_BUILD)
        return()
    endif()
    if(NOT TARGET vanto_core_headers)
        vanto_header_library(vanto_core_headers LIBRARIES Qt6::Core HEADERS ${VANTO_CORE_HEADERS})
    endif()
    foreach(target IN LISTS ARGV)
        target_precompile_headers(${target} REUSE_FROM vanto_core_headers)
    endforeach()
endfunction()

# vanto_precompile_test_headers(TARGET HEADER...): the same for a test program, in which also Qt Test is
# slow to parse.
function(vanto_precompile_test_headers target)
    if(NOT VANTO_QUICK_BUILD)
        return()
    endif()
    target_precompile_headers(${target} PRIVATE ${ARGN} <QTest>)
endfunction()
