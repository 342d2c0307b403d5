# The warnings that our own code is built with.
add_library(kx_warnings INTERFACE)
target_compile_options(kx_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wconversion -Wno-sign-conversion $<$<BOOL:${KXVSGRID_WERROR}>:-Werror>)
