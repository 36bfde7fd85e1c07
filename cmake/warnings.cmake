# Every target of the project is compiled with the same warnings, and none is let through.
add_compile_options(-Wall -Wextra -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wold-style-cast -Wundef -Werror)
if(WIN32)
  # Interface methods are called through tables of plain function pointers.
  add_compile_options(-Wno-cast-function-type -Wno-non-virtual-dtor)
  add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
endif()
