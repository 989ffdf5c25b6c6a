# Toolchain: Debian's mingw-w64 for Windows x86-64 (POSIX threads, table-based unwinding).
#
# The libraries for the target, Qt among them, lie in the prefix that tools/windows/build-qt-mingw.sh makes. It is told
# by the CMake variable or the environment variable ZYCORE_MINGW_PREFIX.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_SYSTEM_VERSION 10.0)

set(zycore_triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${zycore_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${zycore_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${zycore_triple}-windres)
find_program(CMAKE_AR ${zycore_triple}-gcc-ar-posix)
find_program(CMAKE_RANLIB ${zycore_triple}-gcc-ranlib-posix)

if(NOT ZYCORE_MINGW_PREFIX)
  set(ZYCORE_MINGW_PREFIX "$ENV{ZYCORE_MINGW_PREFIX}")
endif()
set(ZYCORE_MINGW_PREFIX "${ZYCORE_MINGW_PREFIX}" CACHE PATH "Prefix with Qt, zlib and minizip for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZYCORE_MINGW_PREFIX)

set(CMAKE_FIND_ROOT_PATH ${ZYCORE_MINGW_PREFIX} /usr/${zycore_triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# pkg-config: only the target's files.
set(ENV{PKG_CONFIG_LIBDIR} "${ZYCORE_MINGW_PREFIX}/lib/pkgconfig:/usr/${zycore_triple}/lib/pkgconfig")
set(ENV{PKG_CONFIG_PATH} "")

# Programs of the target, tests above all, run under Wine.
set(zycore_wine_run ${CMAKE_CURRENT_LIST_DIR}/../tools/windows/wine-run)
if(ZYCORE_MINGW_PREFIX)
  list(APPEND zycore_wine_run --libraries ${ZYCORE_MINGW_PREFIX}/bin)
endif()
set(CMAKE_CROSSCOMPILING_EMULATOR "${zycore_wine_run}" CACHE STRING "Runs programs of the target")
