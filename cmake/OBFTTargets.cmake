# SPDX-License-Identifier: Apache-2.0
# What every target of this project shares: language level, warnings, sanitizers, Qt tools.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_INCLUDE_CURRENT_DIR OFF)

# Programs and libraries of one build stand together, so that the resource folder beside the
# executable serves them all.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

find_program(OBFT_CCACHE ccache)
if(OBFT_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_C_COMPILER_LAUNCHER "${OBFT_CCACHE}")
    set(CMAKE_CXX_COMPILER_LAUNCHER "${OBFT_CCACHE}")
endif()

# Eighty programs are linked for tests; the gold linker takes a fifth of the time. What is shipped is
# linked as everything else on its system.
find_program(OBFT_GOLD ld.gold)
if(OBFT_GOLD AND CMAKE_BUILD_TYPE STREQUAL "Debug" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU"
   AND NOT CMAKE_CROSSCOMPILING)
    add_link_options(-fuse-ld=gold)
endif()

if(OBFT_SANITIZE)
    add_compile_options(-fsanitize=${OBFT_SANITIZE} -fno-omit-frame-pointer -O1)
    add_link_options(-fsanitize=${OBFT_SANITIZE})
    # Instrumented code looks uninitialised to GCC in places where it is not (std::variant); the
    # other presets keep the warning.
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    if(OBFT_SANITIZE MATCHES "undefined")
        add_compile_options(-fno-sanitize-recover=undefined)
    endif()
    if(OBFT_SANITIZE MATCHES "thread")
        add_compile_definitions(OBFT_THREAD_SANITIZER)
    endif()
endif()

if(OBFT_CLANG_TIDY)
    find_program(OBFT_CLANG_TIDY_EXE clang-tidy REQUIRED)
    # What moc and rcc generate stands in the build folder, and clang-tidy takes the nearest
    # configuration above a file. It refuses to run without any check; this one is about LLVM's own
    # types.
    file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/.clang-tidy" @ONLY
        CONTENT "Checks: '-*,llvm-twine-local'\n")
endif()

# Language level, warnings and string rules of our own code.
function(obft_target_defaults target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wshadow -Wconversion
        $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>)
    if(OBFT_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
        QT_DEPRECATED_WARNINGS QT_MESSAGELOGCONTEXT)
    if(NOT OBFT_SANITIZE)
        get_target_property(type ${target} TYPE)
        if(type STREQUAL "SHARED_LIBRARY")
            target_link_options(${target} PRIVATE -Wl,--no-undefined)
        endif()
    endif()
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    if(TARGET obft_precompiled AND NOT target STREQUAL "obft_precompiled")
        target_precompile_headers(${target} REUSE_FROM obft_precompiled)
    endif()
    if(OBFT_CLANG_TIDY)
        set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${OBFT_CLANG_TIDY_EXE}")
    endif()
endfunction()

# For the shared libraries: one that was used once stays in memory. Qt keeps data of a library that
# drew with it (fonts, styles, meta types) until the application ends, also after dlclose().
function(obft_never_unload target)
    target_link_options(${target} PRIVATE "LINKER:-z,nodelete")
endfunction()

# One folder of src/: an object library that includes from the root of src/ and links the folders
# to its left (DEPENDS). tests/structure checks the direction of the includes themselves.
function(obft_add_folder name)
    cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS" ${ARGN})
    add_library(obft_${name} OBJECT ${arg_SOURCES})
    obft_target_defaults(obft_${name})
    if(OBFT_SHARED_TEST_OBJECTS)
        # The library's own exports are those of its version script, whatever the objects show.
        set_target_properties(obft_${name} PROPERTIES
            CXX_VISIBILITY_PRESET default VISIBILITY_INLINES_HIDDEN OFF)
    endif()
    target_include_directories(obft_${name} PUBLIC
        "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}/include")
    target_link_libraries(obft_${name} PUBLIC
        BaseTools StyledCtl Qt${OBFT_QT_MAJOR}::Core Qt${OBFT_QT_MAJOR}::Gui Qt${OBFT_QT_MAJOR}::Widgets pugixml::pugixml)
    foreach(dependency IN LISTS arg_DEPENDS)
        target_link_libraries(obft_${name} PUBLIC obft_${dependency})
    endforeach()
endfunction()
