# cmake --install: the dialog library with its public headers and a CMake
# package (find_package(veld5DlgCE) -> veld5DlgCE::veld5DlgCE), the host
# stand-in libraries it runs on, the demo and the tools, and the support
# folder. Programs find the libraries in ../lib and the support files in
# ../share/veld/support, so an installed tree can move as a whole.
include(CMakePackageConfigHelpers)

set(VELD_SUPPORT_INSTALL_DIR share/veld/support)
set(VELD_CMAKE_INSTALL_DIR lib/cmake/veld5DlgCE)

install(TARGETS veld5DlgCE EXPORT veld5DlgCETargets
        LIBRARY DESTINATION lib
        # <veld5DlgCE/factory/IVELDDlgFactory.h>, as Qt takes <QtWidgets/QDialog>,
        # and the short <factory/IVELDDlgFactory.h> both resolve.
        INCLUDES DESTINATION include include/veld5DlgCE)
install(FILES src/factory/IVELDDlgFactory.h src/factory/Export.h
        DESTINATION include/veld5DlgCE/factory)
install(FILES src/linetypes/LtypeLoader.h src/linetypes/LtypePickers.h
        DESTINATION include/veld5DlgCE/linetypes)
install(EXPORT veld5DlgCETargets NAMESPACE veld5DlgCE:: DESTINATION ${VELD_CMAKE_INSTALL_DIR})

configure_package_config_file(cmake/veld5DlgCEConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/veld5DlgCEConfig.cmake
  INSTALL_DESTINATION ${VELD_CMAKE_INSTALL_DIR}
  PATH_VARS VELD_SUPPORT_INSTALL_DIR)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/veld5DlgCEConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/veld5DlgCEConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/veld5DlgCEConfigVersion.cmake
        DESTINATION ${VELD_CMAKE_INSTALL_DIR})

# The host's libraries, as the stand-ins the library was built against: they
# are needed at run time only (no headers).
install(TARGETS ulo uloctrl veldcore pix veldapp veldview LIBRARY DESTINATION lib)
install(TARGETS veld-demo veld-play veld-lin veld-gallery RUNTIME DESTINATION bin)
install(DIRECTORY support/ DESTINATION ${VELD_SUPPORT_INSTALL_DIR})

# cpack -G DEB: a Debian package of the same tree.
set(CPACK_PACKAGE_NAME veld5dlgce)
set(CPACK_PACKAGE_VENDOR "veld5DlgCE developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Dialog library of the veld CAD and survey editor, with a demo host")
set(CPACK_PACKAGE_CONTACT "veld5DlgCE developers <veld5dlgce@localhost>")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
