# Copies the shared libraries that PROGRAM needs and that a desktop cannot be expected to have into FOLDER. Run after
# linking.
set(shipped "^lib(GLEW|GLU|SDL2-2|SDL2_mixer-2|assimp|ogg|vorbis|vorbisfile)[.-]")
# Those of an earlier build would be found a second time.
file(REMOVE_RECURSE "${FOLDER}")
file(GET_RUNTIME_DEPENDENCIES
  EXECUTABLES "${PROGRAM}"
  RESOLVED_DEPENDENCIES_VAR found
  UNRESOLVED_DEPENDENCIES_VAR missing
  PRE_INCLUDE_REGEXES "${shipped}"
  PRE_EXCLUDE_REGEXES ".*")
if(missing)
  message(FATAL_ERROR "${PROGRAM}: these libraries are nowhere to be found: ${missing}")
endif()
file(MAKE_DIRECTORY "${FOLDER}")
foreach(library IN LISTS found)
  file(COPY "${library}" DESTINATION "${FOLDER}" FOLLOW_SYMLINK_CHAIN)
endforeach()
