# Toolchain file: 64-bit Windows programs from Debian's GCC for mingw-w64, run by wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triple x86_64-w64-mingw32)
# The variant with POSIX threads: the other one has no std::thread and std::mutex.
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

if(NOT QUILLET_WIN_DEPS)
    if(DEFINED ENV{QUILLET_WIN_DEPS})
        set(QUILLET_WIN_DEPS "$ENV{QUILLET_WIN_DEPS}")
    else()
        set(QUILLET_WIN_DEPS "$ENV{HOME}/.cache/quillet/win64")
    endif()
endif()
set(QUILLET_WIN_DEPS "${QUILLET_WIN_DEPS}"
    CACHE PATH "What cmake/windows/build-dependencies made: libraries and wine prefix")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QUILLET_WIN_DEPS)

list(APPEND CMAKE_PREFIX_PATH "${QUILLET_WIN_DEPS}")
set(CMAKE_FIND_ROOT_PATH "${QUILLET_WIN_DEPS}" /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# The import library libz.dll.a would be found first, and programs would need zlib1.dll.
set(ZLIB_LIBRARY /usr/${triple}/lib/libz.a CACHE FILEPATH "")

# Programs need Windows' own DLLs only, not those of the compiler.
foreach(kind IN ITEMS EXE SHARED MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT -static)
endforeach()
set(CMAKE_CROSSCOMPILING_EMULATOR
    /usr/bin/env "QUILLET_WIN_DEPS=${QUILLET_WIN_DEPS}" "${CMAKE_CURRENT_LIST_DIR}/run-wine")
