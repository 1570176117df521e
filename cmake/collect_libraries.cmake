# Copies the shared libraries that PROGRAM needs and that a desktop cannot be expected to have into FOLDER, each under
# the name that it is asked for by. Those of the folder OWN, if it is given, go before the system's. Run after linking.
set(shipped "^lib(GLEW|GLU|SDL2-2|SDL2_mixer-2|assimp|minizip|ogg|vorbis|vorbisfile)[.-]")
# Those of an earlier build would be found a second time.
file(REMOVE_RECURSE "${FOLDER}")
file(MAKE_DIRECTORY "${FOLDER}")

# Without symbolic links, which not every archive can hold.
function(copy_library library)
  file(REAL_PATH "${library}" contents)
  cmake_path(GET library FILENAME name)
  file(COPY_FILE "${contents}" "${FOLDER}/${name}")
endfunction()

if(OWN)
  file(GLOB own "${OWN}/lib*.so.*")
  foreach(library IN LISTS own)
    cmake_path(GET library FILENAME name)
    if(name MATCHES "${shipped}" AND name MATCHES "[.]so[.][0-9]+$")
      copy_library("${library}")
    endif()
  endforeach()
endif()
file(GET_RUNTIME_DEPENDENCIES
  EXECUTABLES "${PROGRAM}"
  RESOLVED_DEPENDENCIES_VAR found
  UNRESOLVED_DEPENDENCIES_VAR missing
  PRE_INCLUDE_REGEXES "${shipped}"
  PRE_EXCLUDE_REGEXES ".*")
if(missing)
  message(FATAL_ERROR "${PROGRAM}: these libraries are nowhere to be found: ${missing}")
endif()
foreach(library IN LISTS found)
  cmake_path(GET library FILENAME name)
  if(NOT EXISTS "${FOLDER}/${name}")
    copy_library("${library}")
  endif()
endforeach()
