# catalogue(KIND OUT [FOLDER]): the names of the rows of one kind in scenes/catalogue.def, in their order; with FOLDER
# only those whose last column, or second one for tracks, is that.
set_property(DIRECTORY "${PROJECT_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  "${PROJECT_SOURCE_DIR}/scenes/catalogue.def")
function(catalogue kind out)
  set(column "")
  if(ARGC GREATER 2)
    set(column ".*, *${ARGV2}[,)]")
  endif()
  file(STRINGS "${PROJECT_SOURCE_DIR}/scenes/catalogue.def" rows REGEX "^${kind}[(][a-z0-9_]+${column}")
  list(TRANSFORM rows REPLACE "^${kind}[(]([a-z0-9_]+).*" "\\1")
  if(NOT rows)
    message(FATAL_ERROR "scenes/catalogue.def: no row ${kind}(... ${ARGV2})")
  endif()
  set(${out} ${rows} PARENT_SCOPE)
endfunction()
