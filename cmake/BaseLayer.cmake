# The base layer: read-only files that the product ships for every device. They are laid out by the device's own paths.

include(GNUInstallDirs)

# The base layer's path relative to a program's directory. It is the same for installed programs and for programs that are
# one level below the top of the build tree.
file(RELATIVE_PATH PRISMO_BASE_LAYER "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_DATADIR}/prismo2/base")
cmake_path(SET PRISMO_BUILT_BASE_LAYER NORMALIZE "${PROJECT_BINARY_DIR}/bin/${PRISMO_BASE_LAYER}")
