# SPDX-License-Identifier: Apache-2.0
# Builds the resource folder that the library loads at run time: pictures drawn from the SVG
# sources of src/resources, three compiled packs, the texts of features and the translation.
#
# Gives the target `obft_resources` (part of ALL) and the variable OBFT_RESOURCE_DIR, the folder
# to install. All tools run on the build machine, also when cross compiling.

set(OBFT_RESOURCE_DIR "${CMAKE_BINARY_DIR}/bin/FeatureTreeResource")
set(OBFT_RESOURCE_SOURCE_DIR "${CMAKE_CURRENT_LIST_DIR}/../src/resources")
set(_obft_resource_work "${CMAKE_BINARY_DIR}/resources")

find_program(OBFT_RSVG_CONVERT rsvg-convert REQUIRED DOC "SVG renderer (Debian: librsvg2-bin)")
obft_find_qt_tool(OBFT_RCC rcc)
obft_find_qt_tool(OBFT_LRELEASE lrelease)

# obft_pack(<pack>): begins the pack <pack>.rcc.
macro(obft_pack pack)
    set(_pack "${pack}")
    set(_pack_entries "")
    set(_pack_depends "")
endmacro()

# obft_pack_file(<resource path> <source below src/resources>): adds a file as it is.
macro(obft_pack_file path source)
    string(APPEND _pack_entries
        "    <file alias=\"${path}\">${OBFT_RESOURCE_SOURCE_DIR}/${source}</file>\n")
    list(APPEND _pack_depends "${OBFT_RESOURCE_SOURCE_DIR}/${source}")
endmacro()

# obft_pack_picture(<resource path without .png> <SVG below src/resources> [style sheet]): adds the
# picture at its own size and, as "@2x", at twice that. The style sheet sets the drawing's colours.
macro(obft_pack_picture path source)
    set(_style "")
    if(${ARGC} GREATER 2)
        set(_style "${OBFT_RESOURCE_SOURCE_DIR}/${ARGV2}")
    endif()
    foreach(_zoom IN ITEMS 1 2)
        set(_suffix "")
        if(_zoom EQUAL 2)
            set(_suffix "@2x")
        endif()
        set(_png "${_obft_resource_work}/${_pack}/${path}${_suffix}.png")
        get_filename_component(_png_dir "${_png}" DIRECTORY)
        file(MAKE_DIRECTORY "${_png_dir}")
        set(_arguments --zoom ${_zoom} --output "${_png}")
        if(_style)
            list(APPEND _arguments --stylesheet "${_style}")
        endif()
        add_custom_command(
            OUTPUT "${_png}"
            COMMAND "${OBFT_RSVG_CONVERT}" ${_arguments} "${OBFT_RESOURCE_SOURCE_DIR}/${source}"
            DEPENDS "${OBFT_RESOURCE_SOURCE_DIR}/${source}" ${_style}
            COMMENT "Drawing ${path}${_suffix}.png" VERBATIM)
        string(APPEND _pack_entries "    <file alias=\"${path}${_suffix}.png\">${_png}</file>\n")
        list(APPEND _pack_depends "${_png}")
    endforeach()
endmacro()

# obft_pack_end(): writes the list of the pack and compiles it into OBFT_RESOURCE_DIR.
macro(obft_pack_end)
    set(_qrc "${_obft_resource_work}/${_pack}.qrc")
    file(CONFIGURE OUTPUT "${_qrc}" @ONLY
        CONTENT "<RCC>\n  <qresource prefix=\"/\">\n${_pack_entries}  </qresource>\n</RCC>\n")
    set(_rcc "${OBFT_RESOURCE_DIR}/${_pack}.rcc")
    add_custom_command(
        OUTPUT "${_rcc}"
        # The form that every Qt 5 and Qt 6 reads, whichever of them packs it.
        COMMAND "${OBFT_RCC}" --binary --format-version 2 --compress-algo zlib
            --output "${_rcc}" "${_qrc}"
        DEPENDS "${_qrc}" ${_pack_depends}
        COMMENT "Packing ${_pack}.rcc" VERBATIM)
    list(APPEND _obft_resource_outputs "${_rcc}")
endmacro()

file(MAKE_DIRECTORY "${OBFT_RESOURCE_DIR}")
set(_obft_resource_outputs "")
include("${OBFT_RESOURCE_SOURCE_DIR}/packs.cmake")

# A new file among the texts is noticed by the next build.
file(GLOB _obft_texts CONFIGURE_DEPENDS "${OBFT_RESOURCE_SOURCE_DIR}/translations/*")

# Names and descriptions of standard features, read by the library as a plain file.
set(_feature_texts "${OBFT_RESOURCE_SOURCE_DIR}/translations/FeaturesTranslate.xml")
if(EXISTS "${_feature_texts}")
    add_custom_command(
        OUTPUT "${OBFT_RESOURCE_DIR}/FeaturesTranslate.xml"
        COMMAND "${CMAKE_COMMAND}" -E copy "${_feature_texts}" "${OBFT_RESOURCE_DIR}"
        DEPENDS "${_feature_texts}" COMMENT "Copying FeaturesTranslate.xml" VERBATIM)
    list(APPEND _obft_resource_outputs "${OBFT_RESOURCE_DIR}/FeaturesTranslate.xml")
endif()

# The Chinese interface.
set(_interface_texts "${OBFT_RESOURCE_SOURCE_DIR}/translations/FeatureTree_zh_CN.ts")
if(EXISTS "${_interface_texts}")
    set(_qm "${OBFT_RESOURCE_DIR}/FeatureTree_zh_CN.qm")
    add_custom_command(
        OUTPUT "${_qm}"
        COMMAND "${OBFT_LRELEASE}" -silent "${_interface_texts}" -qm "${_qm}"
        DEPENDS "${_interface_texts}" COMMENT "Compiling FeatureTree_zh_CN.qm" VERBATIM)
    list(APPEND _obft_resource_outputs "${_qm}")
endif()

add_custom_target(obft_resources ALL DEPENDS ${_obft_resource_outputs})
