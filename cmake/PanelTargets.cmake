# Every target of the project is declared through these functions, so that all of them share warnings, include folder
# and sanitizers.
#
#   panel_library(NAME SOURCES a.cpp ... LINK panel_basic ...)   static library, or INTERFACE without any SOURCES
#   panel_program(NAME SOURCES main.cpp ... LINK ...)            executable
#   panel_test(NAME [QT] SOURCES a_test.cpp ... LINK ...)        GoogleTest program whose cases ctest lists one by one
#   panel_add_folder(folder ...)                                 add_subdirectory for the folders that have a CMakeLists.txt
#
# PRECOMPILE <header> ...: large headers of others that most of the sources include. All other libraries share what the
# standard library is precompiled to, and with <nlohmann/json.hpp> alone what that is; all other tests share GoogleTest, those
# of what uses Qt (QT) together with Qt. The static checks precompile nothing and so find out what a file of the library
# forgets to include.

# Files below src/, hosts/ and adapters/ are included by their path from there: "basic/variant.h", "jet/jet_engine.h".
set(PANEL_INCLUDE_DIRS "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}/hosts" "${PROJECT_SOURCE_DIR}/adapters")
# Installed they stand in one folder.
list(TRANSFORM PANEL_INCLUDE_DIRS REPLACE "(.+)" "$<BUILD_INTERFACE:\\1>" OUTPUT_VARIABLE PANEL_LIBRARY_INCLUDE_DIRS)
list(APPEND PANEL_LIBRARY_INCLUDE_DIRS "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/servopanel>")

function(panel_target_defaults target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
    if(SERVOPANEL_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        # In optimised code g++ 12 reports overlaps and unset characters inside short std::strings that cannot happen.
        # What is really unset is left to clang, which the tidy preset compiles with.
        target_compile_options(${target} PRIVATE -Wno-restrict -Wno-maybe-uninitialized)
    endif()
    if(SERVOPANEL_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${SERVOPANEL_SANITIZE} -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            # Instrumented code makes g++ doubt variables that every path sets.
            target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
        endif()
        target_link_options(${target} PUBLIC -fsanitize=${SERVOPANEL_SANITIZE})
    endif()
endfunction()

function(panel_precompile target)
    if(NOT ARGN)
        return()
    endif()
    target_precompile_headers(${target} PRIVATE ${ARGN})
    panel_allow_for_precompiled(${target})
endfunction()

# Takes what another target has precompiled.
function(panel_share_precompiled target from)
    target_precompile_headers(${target} REUSE_FROM ${from})
    panel_allow_for_precompiled(${target})
endfunction()

function(panel_allow_for_precompiled target)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        # From precompiled headers g++ 12 also reports such things of std::string as it keeps to itself otherwise.
        target_compile_options(${target} PRIVATE -Wno-stringop-overflow -Wno-array-bounds)
    endif()
endfunction()

function(panel_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK;PRECOMPILE")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "panel_library(${name}): do not know what to do with ${arg_UNPARSED_ARGUMENTS}")
    endif()
    if(NOT arg_SOURCES)
        add_library(${name} INTERFACE)
        target_compile_features(${name} INTERFACE cxx_std_20)
        target_include_directories(${name} INTERFACE ${PANEL_LIBRARY_INCLUDE_DIRS})
        target_link_libraries(${name} INTERFACE ${arg_LINK})
        return()
    endif()
    add_library(${name} STATIC ${arg_SOURCES})
    panel_target_defaults(${name})
    # For whoever includes the headers elsewhere.
    target_compile_features(${name} PUBLIC cxx_std_20)
    target_include_directories(${name} PUBLIC ${PANEL_LIBRARY_INCLUDE_DIRS})
    target_link_libraries(${name} PUBLIC ${arg_LINK})
    if(NOT arg_PRECOMPILE)
        panel_share_precompiled(${name} precompiled_std)
    elseif(arg_PRECOMPILE STREQUAL "<nlohmann/json.hpp>")
        panel_share_precompiled(${name} precompiled_json)
    else()
        panel_precompile(${name} ${arg_PRECOMPILE})
    endif()
endfunction()

function(panel_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "panel_program(${name}): do not know what to do with ${arg_UNPARSED_ARGUMENTS}")
    endif()
    add_executable(${name} ${arg_SOURCES})
    panel_target_defaults(${name})
    target_include_directories(${name} PRIVATE ${PANEL_INCLUDE_DIRS})
    target_link_libraries(${name} PRIVATE ${arg_LINK})
endfunction()

# Building takes longer than testing: no time is spent on making the tests themselves fast, nor on watching what their own
# code does.
set(PANEL_TEST_OPTIONS $<$<CONFIG:Release>:-O0>)
if(SERVOPANEL_SANITIZE MATCHES "undefined")
    list(APPEND PANEL_TEST_OPTIONS -fno-sanitize=undefined)
endif()

function(panel_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "" "SOURCES;LINK;PRECOMPILE")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "panel_test(${name}): do not know what to do with ${arg_UNPARSED_ARGUMENTS}")
    endif()
    add_executable(${name} ${arg_SOURCES})
    panel_target_defaults(${name})
    # Test helpers are included by their path from tests/.
    target_include_directories(${name} PRIVATE ${PANEL_INCLUDE_DIRS} "${PROJECT_SOURCE_DIR}/tests")
    target_compile_definitions(${name} PRIVATE SERVOPANEL_TESTS_DIR="${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(${name} PRIVATE ${arg_LINK} GTest::gtest GTest::gtest_main)
    target_compile_options(${name} PRIVATE ${PANEL_TEST_OPTIONS})
    if(arg_PRECOMPILE)
        panel_precompile(${name} <gtest/gtest.h> ${arg_PRECOMPILE})
    elseif(arg_QT)
        panel_share_precompiled(${name} precompiled_qt_gtest)
    else()
        panel_share_precompiled(${name} precompiled_gtest)
    endif()
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
    # With sanitizers a process takes longer to start than most cases to run, hence all cases in a few processes as well.
    foreach(part RANGE 3)
        add_test(NAME together.${name}.${part} COMMAND ${name})
        set_tests_properties(together.${name}.${part} PROPERTIES LABELS together TIMEOUT 600
                             ENVIRONMENT "GTEST_TOTAL_SHARDS=4;GTEST_SHARD_INDEX=${part};GTEST_BRIEF=1")
    endforeach()
endfunction()

function(panel_add_folder)
    foreach(folder IN LISTS ARGN)
        if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/CMakeLists.txt")
            add_subdirectory(${folder})
        endif()
    endforeach()
endfunction()
