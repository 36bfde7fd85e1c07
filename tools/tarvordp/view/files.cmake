find_package(PkgConfig REQUIRED)
pkg_check_modules(Cairo REQUIRED IMPORTED_TARGET cairo-pdf cairo-png fontconfig)
target_link_libraries(tarvordp_parts PUBLIC PkgConfig::Cairo)

target_sources(tarvordp_parts PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/character_set.cpp
  ${CMAKE_CURRENT_LIST_DIR}/composed_line.cpp
  ${CMAKE_CURRENT_LIST_DIR}/decoder.cpp
  ${CMAKE_CURRENT_LIST_DIR}/escape_sequences.cpp
  ${CMAKE_CURRENT_LIST_DIR}/page_drawing.cpp
  ${CMAKE_CURRENT_LIST_DIR}/page_files.cpp
  ${CMAKE_CURRENT_LIST_DIR}/page_model.cpp
  ${CMAKE_CURRENT_LIST_DIR}/printing_state.cpp
  ${CMAKE_CURRENT_LIST_DIR}/terminal_form.cpp
  ${CMAKE_CURRENT_LIST_DIR}/text_form.cpp
  ${CMAKE_CURRENT_LIST_DIR}/unknown_code.cpp
  ${CMAKE_CURRENT_LIST_DIR}/view_command.cpp)
