# SPDX-License-Identifier: Apache-2.0
# Debian packages of the three components; scripts/package.sh makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "OBFeatureTree maintainers <maintainers@obfeaturetree.example>")
set(CPACK_PACKAGE_VENDOR "OBFeatureTree maintainers")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL library development program)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Where dpkg-shlibdeps finds the project's own libraries before they are installed.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
if(CMAKE_CROSSCOMPILING)
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
endif()

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libobfeaturetree1)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
# Without such a font the Chinese texts are empty boxes.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS "fonts-noto-cjk | fonts-wqy-zenhei")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION
    "A window in which the user of a machine-vision host browses and edits the
features of a connected industrial camera. The host hands it a GenICam-style
description and callbacks; the library never talks to the camera itself.
.
This package holds the shared library and its resources.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libobfeaturetree-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libobfeaturetree1 (= ${PROJECT_VERSION}), ${OBFT_QT_DEVELOPMENT_PACKAGE}")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "A window in which the user of a machine-vision host browses and edits the
features of a connected industrial camera.
.
This package holds the C header, the CMake package and the pkg-config file.")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME camera-host)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "libobfeaturetree1 (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION
    "Opens a window on the features of a GigE Vision or USB3 Vision camera, or of
a simulated one: groups, search, favourites, user levels, curated pages,
look-up table and colour matrix editors, feature files, Chinese and English.")

# Each package has a copyright and a change log, as Debian wants them.
find_program(OBFT_GZIP gzip)
if(OBFT_GZIP)
    set(folder "${CMAKE_BINARY_DIR}/packaging")
    foreach(package IN ITEMS library development program)
        string(TOUPPER ${package} component)
        set(name ${CPACK_DEBIAN_${component}_PACKAGE_NAME})
        configure_file(packaging/debian-changelog.in "${folder}/${name}/changelog" @ONLY)
        execute_process(COMMAND "${OBFT_GZIP}" -9nf "${folder}/${name}/changelog")
        install(FILES packaging/copyright "${folder}/${name}/changelog.gz"
            DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${package})
    endforeach()
endif()

include(CPack)
