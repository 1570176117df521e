# The warnings of our own code. Link it PRIVATE, so that they reach no one else.
add_library(warnings INTERFACE)
target_compile_options(warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)
