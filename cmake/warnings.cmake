# The warnings of our own code. Link it PRIVATE, so that they reach no one else.
add_library(warnings INTERFACE)
target_compile_options(warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)
# A material's destroying delete is sound without a virtual destructor; Clang's warnings do not look at the kind of delete.
target_compile_options(warnings INTERFACE
  $<$<CXX_COMPILER_ID:Clang>:-Wno-delete-abstract-non-virtual-dtor -Wno-delete-non-abstract-non-virtual-dtor>)
