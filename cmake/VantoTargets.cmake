# Functions that give every target the same warnings, sanitizers and include rule.

set(VANTO_SANITIZERS "" CACHE STRING "Sanitizers for -fsanitize=, e.g. address,undefined")

add_library(vanto_build_flags INTERFACE)
target_compile_options(vanto_build_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(vanto_build_flags INTERFACE
    QT_NO_FOREACH QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_DEPRECATED_WARNINGS)
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

# vanto_precompile_headers(TARGET): for targets with many files that use Qt Widgets; parsing the Qt
# headers takes longer than compiling such a file. A build without VANTO_QUICK_BUILD detects missing
# includes.
function(vanto_precompile_headers target)
    if(NOT VANTO_QUICK_BUILD)
        return()
    endif()
    if(NOT TARGET vanto_qt_headers)
        if(NOT EXISTS ${CMAKE_BINARY_DIR}/qtheaders.cpp)
            file(WRITE ${CMAKE_BINARY_DIR}/qtheaders.cpp "")
        endif()
        add_library(vanto_qt_headers OBJECT ${CMAKE_BINARY_DIR}/qtheaders.cpp)
        set_target_properties(vanto_qt_headers PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
        target_link_libraries(vanto_qt_headers PRIVATE vanto_build_flags Qt6::Widgets)
        target_precompile_headers(vanto_qt_headers PRIVATE <QApplication> <QComboBox> <QDebug>
            <QDialog> <QElapsedTimer> <QFile> <QJsonDocument> <QLabel> <QLineEdit> <QMainWindow>
            <QMessageBox> <QPointer> <QProcess> <QPushButton> <QRegularExpression> <QSlider>
            <QTableWidget> <QTabWidget> <QTemporaryDir> <QTimer> <algorithm> <array>
            <functional> <memory> <optional> <vector>)
    endif()
    target_precompile_headers(${target} REUSE_FROM vanto_qt_headers)
endfunction()
