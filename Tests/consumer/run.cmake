# SPDX-License-Identifier: MIT
# Installs the library into an empty prefix, then builds and runs a consumer from outside the tree,
# once through the CMake package and once through pkg-config.
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DWORK_DIR=... -DCXX=... -DFLAGS=... -P run.cmake
function(step what)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${what} failed (${result}):\n${out}")
    endif()
    message(STATUS "${what}: done\n${out}")
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
file(COPY ${SOURCE_DIR}/main.cpp ${SOURCE_DIR}/CMakeLists.txt DESTINATION ${WORK_DIR}/consumer)
set(prefix ${WORK_DIR}/prefix)

step("install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
step("configure" ${CMAKE_COMMAND} -S ${WORK_DIR}/consumer -B ${WORK_DIR}/build -G Ninja
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_CXX_FLAGS=${FLAGS})
step("build" ${CMAKE_COMMAND} --build ${WORK_DIR}/build)
step("run" ${WORK_DIR}/build/consumer)

file(GLOB pc ${prefix}/*/pkgconfig/zarncore.pc ${prefix}/*/*/pkgconfig/zarncore.pc)
get_filename_component(pcdir ${pc} DIRECTORY)
get_filename_component(libdir ${pcdir} DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${pcdir})
execute_process(COMMAND pkg-config --cflags --libs zarncore
    OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "pkg-config does not know zarncore")
endif()
separate_arguments(flags UNIX_COMMAND "${flags} ${FLAGS}")
step("build with pkg-config" ${CXX} -std=c++17 -fPIC ${WORK_DIR}/consumer/main.cpp
    -o ${WORK_DIR}/plain ${flags} -Wl,-rpath,${libdir})
step("run with pkg-config" ${WORK_DIR}/plain)
