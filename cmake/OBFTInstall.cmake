# SPDX-License-Identifier: Apache-2.0
# What `cmake --install` gives, in three components: "library" (with the resource folder),
# "development" (header, CMake package, pkg-config file), "program" (the host).
include(CMakePackageConfigHelpers)

set(OBFT_INSTALL_RESOURCES "${CMAKE_INSTALL_DATADIR}/OBFeatureTree")
set(OBFT_INSTALL_CMAKE "${CMAKE_INSTALL_LIBDIR}/cmake/OBFeatureTree")

set_target_properties(BaseTools StyledCtl PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS OBFeatureTree BaseTools StyledCtl EXPORT OBFeatureTreeTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library
        NAMELINK_COMPONENT development
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES include/OBFeatureTree/OBFeatureTree.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/OBFeatureTree COMPONENT development)
# Hosts may put this folder beside their executable; obfeaturetree_copy_resources() does it.
install(DIRECTORY "${OBFT_RESOURCE_DIR}" DESTINATION ${OBFT_INSTALL_RESOURCES} COMPONENT library)
install(FILES README.md CHANGELOG.md docs/HOST_GUIDE.md
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libobfeaturetree-dev COMPONENT development)

if(OBFT_BUILD_HOST)
    install(TARGETS camera-host RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
    install(FILES packaging/camera-host.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT program)
    install(FILES packaging/camera-host.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT program)
    install(FILES packaging/camera-host.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
    install(FILES docs/USER_GUIDE.md docs/USER_GUIDE.zh.md
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/camera-host COMPONENT program)
endif()

install(EXPORT OBFeatureTreeTargets NAMESPACE OBFeatureTree::
    DESTINATION ${OBFT_INSTALL_CMAKE} COMPONENT development)
configure_package_config_file(packaging/OBFeatureTreeConfig.cmake.in
    "${CMAKE_BINARY_DIR}/packaging/OBFeatureTreeConfig.cmake"
    INSTALL_DESTINATION ${OBFT_INSTALL_CMAKE}
    PATH_VARS OBFT_INSTALL_RESOURCES)
write_basic_package_version_file(
    "${CMAKE_BINARY_DIR}/packaging/OBFeatureTreeConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/packaging/OBFeatureTreeConfig.cmake"
    "${CMAKE_BINARY_DIR}/packaging/OBFeatureTreeConfigVersion.cmake"
    DESTINATION ${OBFT_INSTALL_CMAKE} COMPONENT development)

# The file must work wherever the tree is moved to, so it finds the prefix from its own place.
file(RELATIVE_PATH OBFT_PC_PREFIX "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file(packaging/obfeaturetree.pc.in
    "${CMAKE_BINARY_DIR}/packaging/obfeaturetree.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/packaging/obfeaturetree.pc"
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

include(OBFTPackages)
