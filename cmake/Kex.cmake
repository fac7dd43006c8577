# SPDX-License-Identifier: LicenseRef-ORVALD
# The few target kinds of this project. Every rule that keeps the layers apart stands here, so
# that a folder's CMakeLists.txt names only its sources and what it rests on.

# Flags of every target: our warnings are errors; hidden visibility and no "unique" symbols, so that
# a module really leaves memory when it is unloaded; no fused multiply-add, so that equal input gives
# equal bits on every machine.
add_library(kex_flags INTERFACE)
target_compile_features(kex_flags INTERFACE cxx_std_20)
target_compile_options(kex_flags INTERFACE
    -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor -Werror
    -ffp-contract=off -fvisibility=hidden -fvisibility-inlines-hidden)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Three warnings are off: gcc 12 gives them falsely for std::string's own code.
    target_compile_options(kex_flags INTERFACE -fno-gnu-unique -Wno-array-bounds -Wno-restrict
        -Wno-stringop-overflow)
endif()
if(WIN32)
    # Nothing newer than Windows 7 is called. windows.h must not take "min" and "max" for its own.
    target_compile_definitions(kex_flags INTERFACE _WIN32_WINNT=0x0601 NOMINMAX)
endif()
if(KEX_SANITIZE)
    # Instrumented code makes gcc see paths that there are not.
    target_compile_options(kex_flags INTERFACE -fsanitize=${KEX_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=undefined $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(kex_flags INTERFACE -fsanitize=${KEX_SANITIZE})
endif()
if(KEX_FUZZ)
    target_compile_options(kex_flags INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(kex_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Kernel and module code: a processor fault may be thrown out of any instruction (the fault guard).
add_library(kex_guarded_flags INTERFACE)
target_link_libraries(kex_guarded_flags INTERFACE kex_flags)
target_compile_options(kex_guarded_flags INTERFACE -fnon-call-exceptions)

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

# On Windows the run-time libraries of the compiler stand beside the modules, which share them: an exception,
# and a fault that is thrown as one, crosses from one library to another.
if(WIN32)
    foreach(library libgcc_s_dw2-1.dll libstdc++-6.dll libwinpthread-1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library} OUTPUT_VARIABLE place
            OUTPUT_STRIP_TRAILING_WHITESPACE)
        configure_file(${place} ${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/${library} COPYONLY)
    endforeach()
endif()

# The standard library's headers are read once for each set of flags, not once a file: that is a third of
# a build. Off, every file shows that it includes what it uses.
option(KEX_PRECOMPILED "precompiled standard headers" ON)
function(kex_precompiled name flags)
    if(NOT KEX_PRECOMPILED)
        return()
    endif()
    set(carrier ${flags}_headers)
    if(NOT TARGET ${carrier})
        add_library(${carrier} OBJECT ${PROJECT_SOURCE_DIR}/cmake/standard_headers.cpp)
        target_link_libraries(${carrier} PRIVATE ${flags})
        target_precompile_headers(${carrier} PRIVATE <algorithm> <array> <charconv> <chrono> <cmath>
            <cstdint> <cstring> <functional> <map> <memory> <optional> <span> <string> <string_view>
            <unordered_map> <utility> <variant> <vector>)
    endif()
    target_precompile_headers(${name} REUSE_FROM ${carrier})
endfunction()

# Public headers: everything under include/, each compiled alone by the target all_verify_interface_header_sets.
function(kex_public_headers target dir)
    if(EXISTS ${PROJECT_SOURCE_DIR}/${dir}/include)
        file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${dir}/include/*.h)
        get_target_property(kind ${target} TYPE)
        set(scope PUBLIC)
        if(kind STREQUAL "INTERFACE_LIBRARY")
            set(scope INTERFACE)
        endif()
        target_sources(${target} ${scope} FILE_SET HEADERS
            BASE_DIRS ${PROJECT_SOURCE_DIR}/${dir}/include FILES ${headers})
        set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
    endif()
endfunction()

# A missing function shows when the library is linked, as it always does on Windows; the sanitizers' own
# come with the program.
function(kex_link_defined name)
    if(NOT KEX_SANITIZE AND NOT WIN32)
        target_link_options(${name} PRIVATE -Wl,-z,defs)
    endif()
endfunction()

# On Windows a library or module is linked with what it takes from the host, told from its objects and the
# static libraries so far.
function(kex_host_imports name)
    if(NOT WIN32)
        return()
    endif()
    get_property(archives GLOBAL PROPERTY KEX_ARCHIVES)
    set(imports ${CMAKE_CURRENT_BINARY_DIR}/${name}_host.a)
    set(script ${PROJECT_SOURCE_DIR}/cmake/host_imports.sh)
    add_custom_command(TARGET ${name} PRE_LINK COMMAND_EXPAND_LISTS VERBATIM
        COMMAND ${script} i686-w64-mingw32- ${PROJECT_SOURCE_DIR}/host/api ${imports}
                $<TARGET_OBJECTS:${name}> ${archives})
    # As an option, the file has no rule of its own; and whole, whatever libraries come behind it.
    target_link_libraries(${name} PRIVATE -Wl,--whole-archive,${imports},--no-whole-archive)
    set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS ${script})
endfunction()

# kex_library(name DIR dir [SHARED output-name] [GUARDED] [DEPS ...] [PRIVATE_DEPS ...] SOURCES ...)
# Sources are relative to DIR. SHARED makes a library of that file name beside the module.
function(kex_library name)
    cmake_parse_arguments(A "GUARDED" "DIR;SHARED" "DEPS;PRIVATE_DEPS;SOURCES" ${ARGN})
    list(TRANSFORM A_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/${A_DIR}/)
    if(A_SHARED)
        add_library(${name} SHARED ${A_SOURCES})
        set_target_properties(${name} PROPERTIES PREFIX "" OUTPUT_NAME ${A_SHARED})
        kex_link_defined(${name})
        kex_host_imports(${name})
    else()
        add_library(${name} STATIC ${A_SOURCES})
        set_property(GLOBAL APPEND PROPERTY KEX_ARCHIVES $<TARGET_FILE:${name}>)
    endif()
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/${A_DIR})
    set(flags kex_flags)
    if(A_GUARDED)
        set(flags kex_guarded_flags)
    endif()
    target_link_libraries(${name} PRIVATE ${flags})
    kex_precompiled(${name} ${flags})
    target_link_libraries(${name} PUBLIC ${A_DEPS} PRIVATE ${A_PRIVATE_DEPS})
    target_compile_features(${name} PUBLIC cxx_std_20)
    kex_public_headers(${name} ${A_DIR})
endfunction()

# kex_module(name FILE file.arx DIR dir DEPS ... SOURCES ...): a module that the host loads at run time.
function(kex_module name)
    cmake_parse_arguments(A "" "DIR;FILE" "DEPS;SOURCES" ${ARGN})
    list(TRANSFORM A_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/${A_DIR}/)
    add_library(${name} MODULE ${A_SOURCES})
    get_filename_component(suffix ${A_FILE} LAST_EXT)
    get_filename_component(stem ${A_FILE} NAME_WLE)
    set_target_properties(${name} PROPERTIES PREFIX "" OUTPUT_NAME ${stem} SUFFIX ${suffix})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/${A_DIR})
    target_link_libraries(${name} PRIVATE kex_guarded_flags ${A_DEPS})
    kex_precompiled(${name} kex_guarded_flags)
    kex_link_defined(${name})
    kex_host_imports(${name})
    if(NOT WIN32)
        set(map ${PROJECT_SOURCE_DIR}/cmake/module.map)
        target_link_options(${name} PRIVATE -Wl,--version-script=${map})
        set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS ${map})
    endif()
endfunction()

# What all test programs are compiled with. Tests are compiled more often than they run: a release
# build spends no time on making them fast, and reads GoogleTest's headers once for all of them.
function(kex_test_flags name)
    target_link_libraries(${name} PRIVATE kex_flags GTest::gtest)
    # gtest's macros compare literals of other signedness than our counts.
    target_compile_options(${name} PRIVATE -Wno-sign-conversion -Wno-conversion
        $<$<CONFIG:Release>:-O0>)
endfunction()

# kex_test(name [DIR tests/x] LIBS ... SOURCES ...): one GoogleTest program, known to CTest by its name.
function(kex_test name)
    if(NOT KEX_TESTS)
        return()
    endif()
    if(KEX_PRECOMPILED AND NOT TARGET kex_test_headers)
        # A program, like those that use the headers: a library's code would be compiled otherwise.
        add_executable(kex_test_headers ${PROJECT_SOURCE_DIR}/tests/support/headers.cpp)
        kex_test_flags(kex_test_headers)
        target_precompile_headers(kex_test_headers PRIVATE <gtest/gtest.h>)
    endif()
    cmake_parse_arguments(A "" "DIR" "LIBS;SOURCES" ${ARGN})
    list(TRANSFORM A_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/${A_DIR}/)
    add_executable(${name} ${A_SOURCES})
    kex_test_flags(${name})
    if(KEX_PRECOMPILED)
        target_precompile_headers(${name} REUSE_FROM kex_test_headers)
    endif()
    target_link_libraries(${name} PRIVATE ${A_LIBS} GTest::gtest_main)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
    target_compile_definitions(${name} PRIVATE KEX_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    add_test(NAME ${name} COMMAND ${name})
endfunction()

# kex_bench(name LIBS ... SOURCES ...): one Google Benchmark program under bench/.
function(kex_bench name)
    if(NOT KEX_BENCH)
        return()
    endif()
    cmake_parse_arguments(A "" "" "LIBS;SOURCES" ${ARGN})
    list(TRANSFORM A_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/bench/)
    add_executable(${name} ${A_SOURCES})
    target_link_libraries(${name} PRIVATE kex_flags ${A_LIBS} benchmark::benchmark)
    target_compile_definitions(${name} PRIVATE KEX_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
endfunction()
