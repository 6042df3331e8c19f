# The base layer: read-only files that the product ships for every device, under the device's own paths.

include(GNUInstallDirs)

# From a program's directory to the base layer: the same for the installed programs and for those that stand one level
# below the top of the build tree.
file(RELATIVE_PATH PRISMO_BASE_LAYER "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_DATADIR}/prismo2/base")
cmake_path(SET PRISMO_BUILT_BASE_LAYER NORMALIZE "${PROJECT_BINARY_DIR}/bin/${PRISMO_BASE_LAYER}")
