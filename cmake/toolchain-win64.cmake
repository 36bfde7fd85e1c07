# Windows, 64 bit.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(TARVO_BITS 64)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw.cmake)
