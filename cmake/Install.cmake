include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS qvimage qvimage_static EXPORT QVImageTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/qvimage DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT QVImageTargets NAMESPACE QVImage:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QVImage)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/QVImageConfig.cmake.in
  ${PROJECT_BINARY_DIR}/QVImageConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QVImage)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QVImageConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QVImageConfig.cmake ${PROJECT_BINARY_DIR}/QVImageConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QVImage)

configure_file(${PROJECT_SOURCE_DIR}/cmake/qvimage.pc.in ${PROJECT_BINARY_DIR}/qvimage.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qvimage.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
