# The warnings that our own code is built with.
add_library(kx_warnings INTERFACE)
target_compile_options(kx_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wconversion -Wno-sign-conversion $<$<BOOL:${KXVSGRID_WERROR}>:-Werror>)
# g++ 12 warns of an overlap in std::string's own operator+ that cannot happen (its bug 105329).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(kx_warnings INTERFACE -Wno-restrict)
endif()
# Where several sources are compiled as one, the compiler takes their unnamed namespaces for those of a header.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_UNITY_BUILD)
    target_compile_options(kx_warnings INTERFACE -Wno-subobject-linkage)
endif()
