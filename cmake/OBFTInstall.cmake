# SPDX-License-Identifier: Apache-2.0
# What `cmake --install` gives: libraries, public header, resource folder, host program, CMake
# package and pkg-config file.
include(CMakePackageConfigHelpers)

set(OBFT_INSTALL_RESOURCES "${CMAKE_INSTALL_DATADIR}/OBFeatureTree")
set(OBFT_INSTALL_CMAKE "${CMAKE_INSTALL_LIBDIR}/cmake/OBFeatureTree")

set_target_properties(BaseTools StyledCtl PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS OBFeatureTree BaseTools StyledCtl EXPORT OBFeatureTreeTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES include/OBFeatureTree/OBFeatureTree.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/OBFeatureTree)
# Hosts put this folder beside their executable; obfeaturetree_copy_resources() does it.
install(DIRECTORY "${OBFT_RESOURCE_DIR}" DESTINATION ${OBFT_INSTALL_RESOURCES})
install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

if(OBFT_BUILD_HOST)
    # The program finds its resources beside itself, as every host does.
    install(TARGETS camera-host RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(DIRECTORY "${OBFT_RESOURCE_DIR}" DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

install(EXPORT OBFeatureTreeTargets NAMESPACE OBFeatureTree::
    DESTINATION ${OBFT_INSTALL_CMAKE})
configure_package_config_file(packaging/OBFeatureTreeConfig.cmake.in
    "${CMAKE_BINARY_DIR}/packaging/OBFeatureTreeConfig.cmake"
    INSTALL_DESTINATION ${OBFT_INSTALL_CMAKE}
    PATH_VARS OBFT_INSTALL_RESOURCES)
write_basic_package_version_file(
    "${CMAKE_BINARY_DIR}/packaging/OBFeatureTreeConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/packaging/OBFeatureTreeConfig.cmake"
    "${CMAKE_BINARY_DIR}/packaging/OBFeatureTreeConfigVersion.cmake"
    DESTINATION ${OBFT_INSTALL_CMAKE})

# The file must work wherever the tree is moved to, so it finds the prefix from its own place.
file(RELATIVE_PATH OBFT_PC_PREFIX "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file(packaging/obfeaturetree.pc.in
    "${CMAKE_BINARY_DIR}/packaging/obfeaturetree.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/packaging/obfeaturetree.pc"
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
