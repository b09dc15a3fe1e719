# SPDX-License-Identifier: Apache-2.0
# The Qt that everything of one build is made with: its major version, the oldest release of it that
# will do, and its tools. Targets are linked as Qt${OBFT_QT_MAJOR}::Widgets and the like.

set(OBFT_QT_MAJOR 5 CACHE STRING "Major version of Qt to build with: 5 or 6")
set_property(CACHE OBFT_QT_MAJOR PROPERTY STRINGS 5 6)
if(OBFT_QT_MAJOR EQUAL 5)
    set(OBFT_QT_VERSION 5.15)
    set(OBFT_QT_DEVELOPMENT_PACKAGE qtbase5-dev)
    set(_obft_qt_folders /usr/lib/qt5/bin)
    set(_obft_qt_packages "qtbase5-dev-tools, qttools5-dev-tools")
elseif(OBFT_QT_MAJOR EQUAL 6)
    set(OBFT_QT_VERSION 6.4)
    set(OBFT_QT_DEVELOPMENT_PACKAGE qt6-base-dev)
    set(_obft_qt_folders /usr/lib/qt6/libexec /usr/lib/qt6/bin)
    set(_obft_qt_packages "qt6-base-dev-tools, qt6-l10n-tools")
else()
    message(FATAL_ERROR "OBFT_QT_MAJOR is ${OBFT_QT_MAJOR}; it can be 5 or 6")
endif()

# obft_find_qt_tool(<variable> <tool>): a program of that Qt on the build machine.
function(obft_find_qt_tool variable tool)
    # Qt's own folders first: a plain "rcc" in PATH may belong to another Qt.
    find_program(${variable} ${tool} PATHS ${_obft_qt_folders} NO_DEFAULT_PATH)
    find_program(${variable} NAMES ${tool}-qt${OBFT_QT_MAJOR} ${tool})
    if(NOT ${variable})
        message(FATAL_ERROR
            "${tool} of Qt ${OBFT_QT_MAJOR} not found (Debian: ${_obft_qt_packages})")
    endif()
endfunction()
