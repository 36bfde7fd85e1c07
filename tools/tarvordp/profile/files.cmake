# The profiles' files are installed for copying (cmake/install.cmake); the program needs none of them.
set(_profiles epson-9pin epson-24pin ibm-proprinter oki-microline plain)
set(_profile_folder ${CMAKE_CURRENT_LIST_DIR}/../profiles)
list(TRANSFORM _profiles REPLACE "(.+)" "${_profile_folder}/\\1.json" OUTPUT_VARIABLE _profile_files)
list(JOIN _profiles "," _profile_names)
set(_shipped ${CMAKE_CURRENT_BINARY_DIR}/generated/shipped_profiles.cpp)
add_custom_command(
  OUTPUT ${_shipped}
  COMMAND ${CMAKE_COMMAND} -DOUTPUT=${_shipped} -DFOLDER=${_profile_folder}
    -DNAMES=${_profile_names} -P ${CMAKE_CURRENT_LIST_DIR}/embed_profiles.cmake
  DEPENDS ${_profile_files} ${CMAKE_CURRENT_LIST_DIR}/embed_profiles.cmake
  COMMENT "Taking the printer profiles into the program"
  VERBATIM)

target_sources(tarvordp_parts PRIVATE
  ${_shipped}
  ${CMAKE_CURRENT_LIST_DIR}/code_text.cpp
  ${CMAKE_CURRENT_LIST_DIR}/printer_language.cpp
  ${CMAKE_CURRENT_LIST_DIR}/profile.cpp
  ${CMAKE_CURRENT_LIST_DIR}/profile_check.cpp
  ${CMAKE_CURRENT_LIST_DIR}/profiles_command.cpp
  ${CMAKE_CURRENT_LIST_DIR}/test_page.cpp)
