# Windows, 32 bit.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(TARVO_BITS 32)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw.cmake)
