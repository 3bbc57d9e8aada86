# SPDX-License-Identifier: MIT
# Installs the library and compiles each installed header alone, as a host with Qt's own keywords and
# conversions would; then links a program in which every inline function of the headers stands and
# that uses every exported class.
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DWORK_DIR=... -DCXX=... -DPYTHON=... -P headers.cmake
set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${prefix})
foreach(command
        "${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix}"
        "${PYTHON} ${SOURCE_DIR}/Tests/consumer/header_uses.py ${prefix}/include/zarncore ${WORK_DIR}/uses"
        "${CMAKE_COMMAND} -S ${SOURCE_DIR}/Tests/consumer -B ${WORK_DIR}/build -G Ninja -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CXX} -DUSES=${WORK_DIR}/uses"
        "${CMAKE_COMMAND} --build ${WORK_DIR}/build"
        "${WORK_DIR}/build/every-header")
    separate_arguments(command UNIX_COMMAND "${command}")
    execute_process(COMMAND ${command} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
