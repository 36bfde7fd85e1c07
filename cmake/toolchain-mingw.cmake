# What the Windows builds share: mingw-w64 with the win32 thread model (no std::thread, no
# std::mutex).  Included by toolchain-win32.cmake and toolchain-win64.cmake.
# REQUIRES: CMAKE_SYSTEM_PROCESSOR (i686, x86_64) and TARVO_BITS (32, 64).
set(CMAKE_SYSTEM_NAME Windows)

set(TARVO_TARGET ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)
set(CMAKE_C_COMPILER ${TARVO_TARGET}-gcc-win32)
set(CMAKE_CXX_COMPILER ${TARVO_TARGET}-g++-win32)
set(CMAKE_RC_COMPILER ${TARVO_TARGET}-windres)
set(TARVO_WIDL ${TARVO_TARGET}-widl CACHE FILEPATH "The compiler of interface definitions")

set(CMAKE_FIND_ROOT_PATH /usr/${TARVO_TARGET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# ctest starts the programs of this build through Wine.  A try_compile has no need of it.
set(CMAKE_CROSSCOMPILING_EMULATOR
    "${CMAKE_CURRENT_LIST_DIR}/../tests/equipment/wine/run.sh;${TARVO_BITS};--")
