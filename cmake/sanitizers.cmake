# What -fsanitize= is to look for in the show and in its tools, such as "address,undefined".
set(VESPERAL_SANITIZERS "" CACHE STRING "Sanitizers of the show and its tools")
set(sanitizing_options "")
if(VESPERAL_SANITIZERS)
  set(sanitizing_options -O1 -g1 -fsanitize=${VESPERAL_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
endif()
add_compile_options(${sanitizing_options})
add_link_options(${sanitizing_options})
