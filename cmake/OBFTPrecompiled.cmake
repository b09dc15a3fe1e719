# SPDX-License-Identifier: Apache-2.0
# The headers that most files include, compiled once. Builds from nothing take about half the time;
# a file that forgets an include is only seen without it, by `debug`, `release` and `tidy`.
if(OBFT_PRECOMPILED_HEADERS)
    file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/precompiled/empty.cpp" CONTENT "")
    add_library(obft_precompiled OBJECT "${CMAKE_BINARY_DIR}/precompiled/empty.cpp")
    obft_target_defaults(obft_precompiled)
    # Types keep the visibility they were compiled with; shown ones fit hidden files, not the reverse.
    set_target_properties(obft_precompiled PROPERTIES AUTOMOC OFF
        CXX_VISIBILITY_PRESET default VISIBILITY_INLINES_HIDDEN OFF)
    target_link_libraries(obft_precompiled PRIVATE Qt${OBFT_QT_MAJOR}::Core
        Qt${OBFT_QT_MAJOR}::Gui Qt${OBFT_QT_MAJOR}::Widgets)
    target_precompile_headers(obft_precompiled PRIVATE
        "$<$<COMPILE_LANGUAGE:CXX>:${CMAKE_CURRENT_LIST_DIR}/OBFTPrecompiled.h>")
endif()
