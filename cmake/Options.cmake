# How every target is compiled.

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_CXX_EXTENSIONS OFF)
find_program(PRISMO_CCACHE ccache)
if(PRISMO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${PRISMO_CCACHE})
endif()
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

add_library(prismo-options INTERFACE)
target_compile_features(prismo-options INTERFACE cxx_std_20)
target_include_directories(prismo-options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(prismo-options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
    # GCC 12 mistakes the concatenation of a literal and a string for an overlapping copy.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

# Any library may become part of the settings bundle, which is a shared object.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

set(PRISMO_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize takes them (address,undefined or thread)")
if(PRISMO_SANITIZE)
    target_compile_options(prismo-options INTERFACE
        -fsanitize=${PRISMO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
        # The instrumentation makes this warning report paths that do not exist.
        -Wno-maybe-uninitialized)
    target_link_options(prismo-options INTERFACE -fsanitize=${PRISMO_SANITIZE})
endif()
if(CMAKE_UNITY_BUILD)
    # False alarms if several sources are compiled as one. Other presets compile each source alone, with these warnings on.
    target_compile_options(prismo-options INTERFACE -Wno-shadow -Wno-subobject-linkage)
endif()
