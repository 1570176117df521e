# embed_shaders(TARGET FOLDER FILE...): holds the GLSL files of FOLDER in TARGET as text.
#
# Each FILE `name.frag` or `name.vert` becomes `inline constexpr char embedded::name_frag[]` in the generated header
# "FOLDER/name_frag.h", which the target's own sources include.
function(embed_shaders target folder)
  foreach(file IN LISTS ARGN)
    string(REPLACE "." "_" symbol "${file}")
    set(source "${CMAKE_CURRENT_SOURCE_DIR}/shaders/${file}")
    set(header "${CMAKE_CURRENT_BINARY_DIR}/embedded/${folder}/${symbol}.h")
    add_custom_command(
      OUTPUT "${header}"
      COMMAND "${CMAKE_COMMAND}" -D "SOURCE=${source}" -D "HEADER=${header}" -D "SYMBOL=${symbol}" -P
              "${PROJECT_SOURCE_DIR}/cmake/write_shader_header.cmake"
      DEPENDS "${source}" "${PROJECT_SOURCE_DIR}/cmake/write_shader_header.cmake"
      COMMENT "Embedding ${folder}/${file}"
      VERBATIM)
    target_sources(${target} PRIVATE "${header}")
  endforeach()
  target_include_directories(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/embedded")
endfunction()
