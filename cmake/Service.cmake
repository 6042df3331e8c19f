# Services are parts of the Linux device that need large libraries. Each is a shared object that a program opens when it
# first needs it, so that the programs themselves do not link those libraries.

include(GNUInstallDirs)

# From a program's directory to that of the services. It is the same for the installed programs and for those that stand
# one level below the top of the build tree, so neither holds an absolute path and both can be moved.
file(RELATIVE_PATH PRISMO_SERVICES "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}/prismo2")
cmake_path(SET PRISMO_BUILT_SERVICES NORMALIZE "${PROJECT_BINARY_DIR}/bin/${PRISMO_SERVICES}")

# prismo_service(NAME SOURCE…): libprismo2-NAME.so, which exports what its sources mark and nothing else.
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
