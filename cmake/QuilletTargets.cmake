# How this project's targets are made. Includes start at the repository root everywhere.
#
#   quillet_library(<target> SOURCES ... [PUBLIC <libs>...] [PRIVATE <libs>...])
#       static library
#   quillet_schema(<RELEASE> SOURCES ...)
#       generated classes of one schema release: static library quillet_schema_<RELEASE>
#   quillet_executable(<target> SOURCES ... [PRIVATE <libs>...])
#   quillet_test(<target> SOURCES ... [PRIVATE <libs>...] [LABELS unit|golden|slow...])
#       GoogleTest program; each TEST becomes a test of ctest. Its sources see QUILLET_SOURCE_DIR
#       and QUILLET_SHARED_DIR as string literals. The default label is "unit"; "slow" raises the
#       time limit of a test from one minute to ten.
#   quillet_test_on_x11(<target> [<filter>])
#       runs the tests of a GoogleTest program, or those that the filter names, once more on a
#       display server of their own, where focus and grabs are real
#   quillet_add_x11_test(<name> COMMAND ... [ENVIRONMENT NAME=VALUE...] [NEEDS <variable>...])
#       a test of ctest that has a display server of its own, for Windows programs too; NEEDS: what
#       find_program has to have found
#   quillet_link_static_qt_plugins(<library>)
#       for a library that is loaded and has windows of Qt: gives it the parts of Qt that find
#       windows and their look, where Qt is static; Qt does so itself for programs
#   quillet_version_resource(<target> <description>)
#       what Windows shows of a program or library: icon, version, description; elsewhere nothing
#   quillet_fuzzer(<name>_fuzzer SOURCES ... [PRIVATE <libs>...])
#       defines LLVMFuzzerTestOneInput. libFuzzer drives it in a build with QUILLET_FUZZ. In all
#       others fuzz/replay_main.cpp does, which runs the files of the folders that it is given, and
#       a test of ctest runs those in fuzz/corpus/<name>.

include(CheckLinkerFlag)
include(GoogleTest)

option(QUILLET_FUZZ "Link the fuzz targets with libFuzzer (clang)" OFF)

# How programs name the files of the building machine: wine shows its root as drive Z:.
set(_quillet_root "")
if(CMAKE_CROSSCOMPILING AND WIN32)
    set(_quillet_root "Z:")
endif()

add_library(quillet_options INTERFACE)
target_compile_options(
    quillet_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor
                              -Werror)
# g++ 12 takes "literal" + std::string for overlapping memory.
target_compile_options(quillet_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(WIN32)
    target_compile_definitions(quillet_options INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN)
endif()

# The generated classes bring some hundred thousand relocations (tables of classes and virtual
# functions): packed they take a fiftieth of the space. A loader from 2022 on is needed.
add_library(quillet_executable_options INTERFACE)
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    target_link_options(quillet_executable_options INTERFACE LINKER:--gc-sections)
    check_linker_flag(CXX LINKER:-z,pack-relative-relocs QUILLET_HAS_PACKED_RELOCATIONS)
    if(QUILLET_HAS_PACKED_RELOCATIONS)
        target_link_options(quillet_executable_options INTERFACE LINKER:-z,pack-relative-relocs)
    endif()
endif()

function(_quillet_common target)
    target_link_libraries(${target} PRIVATE quillet_options)
    target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}")
    set_target_properties(
        ${target} PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
                             VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# Stops at a misspelt or forgotten keyword: cmake_parse_arguments itself is silent.
macro(_quillet_arguments)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;PUBLIC;PRIVATE;LABELS")
    if(arg_UNPARSED_ARGUMENTS OR NOT arg_SOURCES)
        message(FATAL_ERROR "${target}: needs SOURCES; not understood: ${arg_UNPARSED_ARGUMENTS}")
    endif()
endmacro()

function(quillet_library target)
    _quillet_arguments()
    add_library(${target} STATIC ${arg_SOURCES})
    _quillet_common(${target})
    target_link_libraries(${target} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE})
endfunction()

function(quillet_schema release)
    set(target quillet_schema_${release})
    _quillet_arguments()
    add_library(${target} STATIC ${arg_SOURCES})
    _quillet_common(${target})
    target_link_libraries(${target} PUBLIC quillet_ifc_model)
    # Reads no faster with more optimisation, and compiles in half the time. These flags come last
    # and so win.
    target_compile_options(${target} PRIVATE -O1 $<$<CONFIG:Debug,RelWithDebInfo>:-g1>)
    # Sections let the linker drop what no release table names. GNU ld for Windows does not drop
    # them, and needs two minutes a program for so many.
    if(NOT WIN32)
        target_compile_options(${target} PRIVATE -ffunction-sections -fdata-sections)
    endif()
endfunction()

function(quillet_executable target)
    _quillet_arguments()
    add_executable(${target} ${arg_SOURCES})
    _quillet_common(${target})
    target_link_libraries(${target} PRIVATE quillet_executable_options ${arg_PRIVATE})
endfunction()

function(quillet_link_static_qt_plugins target)
    if(WIN32 AND QUILLET_HAS_QT)
        target_sources(${target} PRIVATE "${PROJECT_SOURCE_DIR}/gui/static_qt_plugins.cpp")
        target_link_libraries(${target} PRIVATE Qt5::QWindowsIntegrationPlugin
                                                Qt5::QWindowsVistaStylePlugin)
    endif()
endfunction()

function(quillet_version_resource target description)
    if(NOT WIN32)
        return()
    endif()
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
        set(file_type VFT_APP)
        set(file_name "${target}.exe")
        set(manifest "1 24 \"${PROJECT_SOURCE_DIR}/cmake/windows/program.manifest\"")
    else()
        set(file_type VFT_DLL)
        set(file_name "${target}.dll")
    endif()
    string(REPLACE "." "," version_numbers "${PROJECT_VERSION}.0")
    set(icon "${PROJECT_SOURCE_DIR}/data/plugins/quillet/quillet_data/edit.ico")
    set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/windows/version.rc.in" "${resource}" @ONLY)
    target_sources(${target} PRIVATE "${resource}")
endfunction()

function(quillet_test target)
    _quillet_arguments()
    quillet_executable(${target} SOURCES ${arg_SOURCES} PRIVATE ${arg_PRIVATE} GTest::gmock_main)
    cmake_path(ABSOLUTE_PATH QUILLET_SHARED_DIR NORMALIZE OUTPUT_VARIABLE shared)
    target_compile_definitions(
        ${target} PRIVATE QUILLET_SOURCE_DIR="${_quillet_root}${PROJECT_SOURCE_DIR}"
                          QUILLET_SHARED_DIR="${_quillet_root}${shared}")
    set(labels ${arg_LABELS})
    if(NOT labels)
        set(labels unit)
    endif()
    set(timeout 60)
    if("slow" IN_LIST labels)
        set(timeout 600)
    endif()
    gtest_discover_tests(
        ${target} NO_PRETTY_VALUES DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT ${timeout})
    # No window of a test waits on somebody's screen; those that need one choose theirs themselves.
    set(no_display "DISPLAY=unset:;WAYLAND_DISPLAY=unset:;QT_QPA_PLATFORM=unset:")
    # Read by ctest after the discovery; gtest_discover_tests itself cannot pass a list as property.
    set(labels_file "${CMAKE_CURRENT_BINARY_DIR}/${target}_labels.cmake")
    file(WRITE "${labels_file}"
         "if(${target}_TESTS)\n"
         "  set_tests_properties(\${${target}_TESTS} PROPERTIES LABELS \"${labels}\"\n"
         "    ENVIRONMENT_MODIFICATION \"${no_display}\")\n"
         "endif()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${labels_file}")
endfunction()

function(quillet_test_on_x11 target)
    set(filter "*")
    if(ARGC GREATER 1)
        set(filter "${ARGV1}")
    endif()
    quillet_add_x11_test(
        ${target}_on_x11
        COMMAND $<TARGET_FILE:${target}> --gtest_filter=${filter}
        ENVIRONMENT QT_QPA_PLATFORM=xcb)
endfunction()

function(quillet_add_x11_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "COMMAND;ENVIRONMENT;NEEDS")
    find_program(QUILLET_XVFB_RUN xvfb-run)
    mark_as_advanced(QUILLET_XVFB_RUN)
    if(CMAKE_CROSSCOMPILING)
        set(run_on_x11 "${PROJECT_SOURCE_DIR}/cmake/windows/run-wine-x11")
    else()
        set(run_on_x11 "${QUILLET_XVFB_RUN}" -a -s "-screen 0 1600x1200x24")
    endif()
    add_test(NAME ${name} COMMAND ${run_on_x11} ${arg_COMMAND})
    # Two that start at once would fight over a display number. X libraries hand over texts without
    # an end, which AddressSanitizer would take for a fault.
    set_tests_properties(
        ${name}
        PROPERTIES ENVIRONMENT
                   "QUILLET_WIN_DEPS=${QUILLET_WIN_DEPS};ASAN_OPTIONS=strict_string_checks=0;${arg_ENVIRONMENT}"
                   TIMEOUT 600 LABELS "gui;slow" RESOURCE_LOCK x11)
    foreach(program IN ITEMS QUILLET_XVFB_RUN ${arg_NEEDS})
        if(NOT ${program})  # shows as "not run"
            set_tests_properties(${name} PROPERTIES DISABLED ON)
        endif()
    endforeach()
endfunction()

function(quillet_fuzzer target)
    _quillet_arguments()
    if(QUILLET_FUZZ)
        quillet_executable(${target} SOURCES ${arg_SOURCES} PRIVATE ${arg_PRIVATE})
        target_link_options(${target} PRIVATE -fsanitize=fuzzer)
        return()
    endif()
    set(replay_main "${PROJECT_SOURCE_DIR}/fuzz/replay_main.cpp")
    quillet_executable(${target} SOURCES ${arg_SOURCES} "${replay_main}" PRIVATE ${arg_PRIVATE})
    string(REGEX REPLACE "_fuzzer$" "" name ${target})
    add_test(NAME fuzz_corpus.${name}
             COMMAND ${target} "${_quillet_root}${PROJECT_SOURCE_DIR}/fuzz/corpus/${name}")
    set_tests_properties(fuzz_corpus.${name} PROPERTIES TIMEOUT 120 LABELS fuzz)
endfunction()
