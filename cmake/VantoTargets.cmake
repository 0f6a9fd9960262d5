# Helpers that give every target the same warnings, sanitizers and folder rule.

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

# vanto_add_library(NAME SOURCES...): a static library that exports its own folder only,
# so that an include of a folder further up does not compile.
function(vanto_add_library name)
    add_library(${name} STATIC ${ARGN})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE vanto_build_flags)
endfunction()

# vanto_add_program(NAME SOURCES...): an executable with the project's flags.
function(vanto_add_program name)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE vanto_build_flags)
endfunction()
