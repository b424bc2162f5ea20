# SPDX-License-Identifier: GPL-3.0-or-later
# Everything that all targets share: language level, warnings, sanitizers, the precompiled header, and the functions
# ondira_library() and ondira_test().

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

find_package(Qt5 5.15 REQUIRED COMPONENTS Concurrent Core Gui LinguistTools Network Qml Quick QuickControls2 QuickTest
                                          Sql Svg Test Widgets Xml)
find_package(Qt5QuickCompiler REQUIRED)
find_package(Boost REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(simdjson REQUIRED)
find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)
pkg_check_modules(ZMQ REQUIRED IMPORTED_TARGET libzmq)

find_program(ONDIRA_CCACHE ccache)
if(ONDIRA_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env "CCACHE_SLOPPINESS=pch_defines,time_macros"
                                    "${ONDIRA_CCACHE}")
endif()

add_library(ondira_flags INTERFACE)
target_compile_features(ondira_flags INTERFACE cxx_std_17)
target_include_directories(ondira_flags INTERFACE "${CMAKE_SOURCE_DIR}/src")
# Log lines name their source file and line in every build.
target_compile_definitions(ondira_flags INTERFACE QT_MESSAGELOGCONTEXT QT_DEPRECATED_WARNINGS)
target_compile_options(ondira_flags INTERFACE -Wall -Wextra -Wpedantic -fno-omit-frame-pointer
                                              "-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=")
target_link_libraries(ondira_flags INTERFACE Qt5::Core Qt5::Gui Qt5::Qml)
find_program(ONDIRA_LLD NAMES ld.lld ld.lld-14)
if(ONDIRA_LLD)
    target_link_options(ondira_flags INTERFACE -fuse-ld=lld)
endif()
if(ONDIRA_SANITIZE)
    target_compile_options(ondira_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined)
    target_link_options(ondira_flags INTERFACE -fsanitize=address,undefined)
endif()
if(ONDIRA_FUZZ)
    target_compile_options(ondira_flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                  -fno-sanitize-recover=undefined)
    target_link_options(ondira_flags INTERFACE -fsanitize=address,undefined)
endif()

# One small precompiled header serves all targets; a large one costs more than it saves.
add_library(ondira_pch OBJECT "${CMAKE_SOURCE_DIR}/cmake/Precompiled.cpp")
target_link_libraries(ondira_pch PRIVATE ondira_flags)
target_precompile_headers(ondira_pch PRIVATE "${CMAKE_SOURCE_DIR}/cmake/Precompiled.h")
set_target_properties(ondira_pch PROPERTIES AUTOMOC OFF)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(ondira_flags INTERFACE -fpch-preprocess)
endif()

# ondira_library(NAME SOURCES ... LINKS ...): one static library of src/, named ondira_NAME, libondira_NAME.a.
function(ondira_library NAME)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(ondira_${NAME} STATIC ${ARG_SOURCES})
    target_link_libraries(ondira_${NAME} PUBLIC ondira_flags ${ARG_LINKS})
    target_precompile_headers(ondira_${NAME} REUSE_FROM ondira_pch)
endfunction()

# ondira_test(NAME SOURCES ... LINKS ...): the test program of one folder, run by CTest as NAME, with the machine to itself.
function(ondira_test NAME)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(test_${NAME} ${ARG_SOURCES})
    target_link_libraries(test_${NAME} PRIVATE ondira_test_support ${ARG_LINKS})
    target_precompile_headers(test_${NAME} REUSE_FROM ondira_pch)
    set_target_properties(test_${NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
    add_test(NAME ${NAME} COMMAND test_${NAME} -silent)
    set_tests_properties(${NAME} PROPERTIES TIMEOUT 600 RUN_SERIAL ON
                         ENVIRONMENT "${ONDIRA_TEST_ENVIRONMENT}")
endfunction()
