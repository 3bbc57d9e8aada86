# SPDX-License-Identifier: MIT
# Builds the editor as others would: as a project of its own, on an installed package, so that it
# uses nothing but what is published.
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DWORK_DIR=... -DCXX=... -P editor.cmake
function(step what)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${what} failed (${result}):\n${out}")
    endif()
    message(STATUS "${what}: done")
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(COPY ${SOURCE_DIR}/Editor DESTINATION ${WORK_DIR})
set(ENV{HOME} ${WORK_DIR}/home)
set(ENV{XDG_DATA_HOME} ${WORK_DIR}/home/data)
set(ENV{QT_QPA_PLATFORM} offscreen)
step("install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix)
step("configure the editor" ${CMAKE_COMMAND} -S ${WORK_DIR}/Editor -B ${WORK_DIR}/build -G Ninja
    -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_CXX_FLAGS=-O0)
step("build the editor" ${CMAKE_COMMAND} --build ${WORK_DIR}/build)
step("draw a window" ${WORK_DIR}/build/zarn-editor
    ${SOURCE_DIR}/Samples/saints-band.musicxml --picture ${WORK_DIR}/window.png)
file(SIZE ${WORK_DIR}/window.png size)
if(size LESS 10000)
    message(FATAL_ERROR "The picture of the window has ${size} bytes.")
endif()
