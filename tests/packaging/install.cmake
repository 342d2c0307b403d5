# Builds the release libraries in BUILD where that is not done yet, and installs them into an empty STAGE.
function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

if(NOT EXISTS ${BUILD}/build.ninja)
    run(${CMAKE_COMMAND} -G Ninja -S ${SOURCE} -B ${BUILD} -DCMAKE_BUILD_TYPE=Release
        -DKXVSGRID_TESTS=OFF -DKXVSGRID_QT=${QT} -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER})
endif()
run(${CMAKE_COMMAND} --build ${BUILD} --target kxVsGrid_package)
file(REMOVE_RECURSE ${STAGE})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${STAGE})
