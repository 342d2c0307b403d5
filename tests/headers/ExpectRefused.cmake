# Compiles SOURCE with COMPILER, which has to refuse it by a single error that says TEXT.
separate_arguments(flags UNIX_COMMAND "${FLAGS}")
execute_process(COMMAND ${COMPILER} ${flags} -std=c++20 -fsyntax-only -I${INCLUDE} ${SOURCE}
                RESULT_VARIABLE result ERROR_VARIABLE said OUTPUT_VARIABLE said)
if(result EQUAL 0)
    message(FATAL_ERROR "${SOURCE} compiles")
endif()
string(REGEX MATCHALL "error: [^\n]*" errors "${said}")
list(LENGTH errors count)
string(FIND "${errors}" "${TEXT}" place)
if(NOT count EQUAL 1 OR place EQUAL -1)
    message(FATAL_ERROR "expected one error: ${TEXT}\n${said}")
endif()
