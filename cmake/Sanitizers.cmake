# Address and undefined-behaviour sanitizers for everything below, so that libraries and programs agree.
if(KXVSGRID_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# What test programs are built with beside the sanitizers. Most spend their time in the library, which is optimised: without
# optimisation of their own they build in half the time; one that runs millions of operations of its own says KX_OPTIMISED.
# Where the library uses a pointer it is checked there; a test's own use of a bad one ends the test without these checks
# too, and they cost as much as all others together.
set(KXVSGRID_TEST_CHECKS LEAN CACHE STRING "How the tests' own code is sanitized (LEAN, FULL)")
set_property(CACHE KXVSGRID_TEST_CHECKS PROPERTY STRINGS LEAN FULL)
add_library(kx_test_options INTERFACE)
target_compile_options(kx_test_options INTERFACE $<$<NOT:$<BOOL:$<TARGET_PROPERTY:KX_OPTIMISED>>>:-O0>)
if(KXVSGRID_SANITIZE AND NOT KXVSGRID_TEST_CHECKS STREQUAL "FULL")
    target_compile_options(kx_test_options INTERFACE -fno-sanitize=null,alignment,object-size,vptr,nonnull-attribute)
endif()
