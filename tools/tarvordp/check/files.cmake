# check and fields: what is wrong with a template, and what it asks for.
target_sources(tarvordp_parts PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/attribute_rules.cpp
  ${CMAKE_CURRENT_LIST_DIR}/character_rules.cpp
  ${CMAKE_CURRENT_LIST_DIR}/check_template.cpp
  ${CMAKE_CURRENT_LIST_DIR}/commands.cpp
  ${CMAKE_CURRENT_LIST_DIR}/control_rules.cpp
  ${CMAKE_CURRENT_LIST_DIR}/fields.cpp
  ${CMAKE_CURRENT_LIST_DIR}/file_form.cpp
  ${CMAKE_CURRENT_LIST_DIR}/findings.cpp
  ${CMAKE_CURRENT_LIST_DIR}/name_rules.cpp
  ${CMAKE_CURRENT_LIST_DIR}/nearest_word.cpp
  ${CMAKE_CURRENT_LIST_DIR}/page_rules.cpp
  ${CMAKE_CURRENT_LIST_DIR}/parser_services.cpp
  ${CMAKE_CURRENT_LIST_DIR}/sections.cpp
  ${CMAKE_CURRENT_LIST_DIR}/value_rules.cpp
  ${CMAKE_CURRENT_LIST_DIR}/width_rules.cpp
  ${CMAKE_CURRENT_LIST_DIR}/written_line.cpp
  ${CMAKE_CURRENT_LIST_DIR}/written_variable.cpp)
