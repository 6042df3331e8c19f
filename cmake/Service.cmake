# A service is a part of the Linux device that needs large libraries. It is a shared object that a program opens on first
# use, so the programs themselves do not link those libraries.

include(GNUInstallDirs)

# The services' directory relative to a program's directory. It is the same for installed programs and for programs that
# are one level below the top of the build tree. No program holds an absolute path, so an installation can be moved.
file(RELATIVE_PATH PRISMO_SERVICES "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}/prismo2")
cmake_path(SET PRISMO_BUILT_SERVICES NORMALIZE "${PROJECT_BINARY_DIR}/bin/${PRISMO_SERVICES}")

# prismo_service(NAME SOURCE…): builds libprismo2-NAME.so, which exports only what its sources mark as exported.
function(prismo_service name)
    add_library(prismo2-${name} MODULE ${ARGN})
    target_link_libraries(prismo2-${name} PRIVATE prismo-options)
    target_link_options(prismo2-${name} PRIVATE -Wl,--no-undefined -Wl,--exclude-libs,ALL)
    set_target_properties(prismo2-${name} PROPERTIES
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        LIBRARY_OUTPUT_DIRECTORY "${PRISMO_BUILT_SERVICES}")
    install(TARGETS prismo2-${name} DESTINATION "${CMAKE_INSTALL_LIBDIR}/prismo2")
endfunction()
