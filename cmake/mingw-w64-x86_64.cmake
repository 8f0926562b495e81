# Cross build for Windows x86-64 with Debian's mingw-w64 (the POSIX threads
# flavour, for std::thread and std::mutex), run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(mingw_triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${mingw_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw_triple}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${mingw_triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Nothing of the compiler's run time beside the binaries: libgcc, libstdc++
# and winpthread linked in statically.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")
# Programs of the build run under Wine: headless, quiet, without the .NET and
# HTML engines that it would offer to install, in a prefix of the build
# directory, with UTF-8 file names on the Linux side (the ANSI code page is
# 1252).
set(CMAKE_CROSSCOMPILING_EMULATOR env WINEPREFIX=${CMAKE_BINARY_DIR}/wine WINEDEBUG=-all
    WINEDLLOVERRIDES=mscoree,mshtml= DISPLAY= LANG=C.UTF-8 LC_ALL= /usr/lib/wine/wine64)

# Libraries built for Windows at set-up time (scripts/test.sh --windows) live
# in the build directory, each with its pkg-config file. The checks of the
# compiler read this file again in folders of their own: the project's folder
# counts.
get_property(in_try_compile GLOBAL PROPERTY IN_TRY_COMPILE)
if(NOT in_try_compile)
  set(VANTREL_WINDOWS_PREFIX ${CMAKE_BINARY_DIR}/deps/prefix)
  list(APPEND CMAKE_FIND_ROOT_PATH ${VANTREL_WINDOWS_PREFIX})
  set(ENV{PKG_CONFIG_LIBDIR} ${VANTREL_WINDOWS_PREFIX}/lib/pkgconfig)
  set(ENV{PKG_CONFIG_PATH} "")
endif()
