# Third-party libraries as targets, the same names for Linux (Debian's packages) and for Windows
# (Debian's sources built by cmake/windows/build-dependencies):
#   ZLIB::ZLIB  minizip::minizip  tinyxml2::tinyxml2  utf8cpp::utf8cpp  GTest::gtest  GTest::gmock_main

find_package(ZLIB REQUIRED)
find_package(tinyxml2 CONFIG REQUIRED)

# <utf8.h>, header only.
find_path(UTF8CPP_INCLUDE_DIR utf8/checked.h PATH_SUFFIXES utf8cpp REQUIRED)
add_library(utf8cpp::utf8cpp INTERFACE IMPORTED)
target_include_directories(utf8cpp::utf8cpp INTERFACE "${UTF8CPP_INCLUDE_DIR}")

# <minizip/zip.h>, <minizip/unzip.h>; for Windows <minizip/iowin32.h> too.
find_path(MINIZIP_INCLUDE_DIR minizip/unzip.h REQUIRED)
find_library(MINIZIP_LIBRARY minizip REQUIRED)
add_library(minizip::minizip UNKNOWN IMPORTED)
set_target_properties(minizip::minizip PROPERTIES IMPORTED_LOCATION "${MINIZIP_LIBRARY}")
target_include_directories(minizip::minizip INTERFACE "${MINIZIP_INCLUDE_DIR}")
target_link_libraries(minizip::minizip INTERFACE ZLIB::ZLIB)
mark_as_advanced(UTF8CPP_INCLUDE_DIR MINIZIP_INCLUDE_DIR MINIZIP_LIBRARY)

# GoogleTest from its sources (Debian's package googletest), so that it has the flags of the build
# (sanitizers) and serves the Windows target.
set(QUILLET_GOOGLETEST_DIR /usr/src/googletest CACHE PATH "Sources of GoogleTest")
set(INSTALL_GTEST OFF)
add_subdirectory("${QUILLET_GOOGLETEST_DIR}" googletest EXCLUDE_FROM_ALL SYSTEM)

# Qt 5 for the windows: Qt5::Widgets and, for tests, Qt5::Test. Cross-builds go without when there is
# none for their target; the plug-in then has no window to edit many objects in. Qt5::UiTools, which
# reads forms, is used where it is to be had.
if(CMAKE_CROSSCOMPILING)
    find_package(Qt5 COMPONENTS Widgets QUIET)
    if(Qt5_FOUND)
        find_library(QUILLET_QT_TEST Qt5Test REQUIRED)
        mark_as_advanced(QUILLET_QT_TEST)
        add_library(Qt5::Test STATIC IMPORTED)
        set_target_properties(
            Qt5::Test PROPERTIES IMPORTED_LOCATION "${QUILLET_QT_TEST}"
                                 INTERFACE_INCLUDE_DIRECTORIES
                                 "${QUILLET_WIN_DEPS}/include;${QUILLET_WIN_DEPS}/include/QtTest"
                                 INTERFACE_LINK_LIBRARIES Qt5::Widgets)
    endif()
else()
    find_package(Qt5 COMPONENTS Widgets Test REQUIRED)
endif()
find_package(Qt5UiTools QUIET)
set(QUILLET_HAS_QT ${Qt5_FOUND})
set(QUILLET_HAS_UITOOLS ${Qt5UiTools_FOUND})
