# SPDX-License-Identifier: MIT
# Installs the library into an empty prefix and uses it from there as others do: builds and runs the
# example of an editor through the CMake package, and the programs of the README through pkg-config,
# with no flags but those that it gives.
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DWORK_DIR=... -DCXX=... -DFLAGS=... -DPYTHON=... -P run.cmake
# FLAGS are what the build of the library itself asks for beyond its package, such as sanitizers.
function(step what)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${what} failed (${result}):\n${out}")
    endif()
    message(STATUS "${what}: done\n${out}")
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(COPY ${SOURCE_DIR}/Examples DESTINATION ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)
set(sample ${SOURCE_DIR}/Samples/romance-guitar-study.musicxml)
# The programs keep out of the user's own data.
set(ENV{HOME} ${WORK_DIR}/home)
set(ENV{XDG_DATA_HOME} ${WORK_DIR}/home/data)

step("install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
step("configure the example" ${CMAKE_COMMAND} -S ${WORK_DIR}/Examples -B ${WORK_DIR}/build -G Ninja
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CXX} "-DCMAKE_CXX_FLAGS=${FLAGS}")
step("build the example" ${CMAKE_COMMAND} --build ${WORK_DIR}/build)
step("run the example" ${WORK_DIR}/build/score-view ${sample} ${WORK_DIR}/viewed.zarn)

file(GLOB_RECURSE pc ${prefix}/zarncore.pc)
get_filename_component(pcdir ${pc} DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${pcdir})
foreach(package zarncore zarnaudio)
    execute_process(COMMAND pkg-config --cflags --libs ${package}
        OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(${package} UNIX_COMMAND "${flags} ${FLAGS}")
endforeach()
# What is played goes into a file, as fast as it can.
set(ENV{SDL_AUDIODRIVER} disk)
set(ENV{SDL_DISKAUDIODELAY} 0)
set(ENV{SDL_DISKAUDIOFILE} ${WORK_DIR}/played.raw)
step("take the programs out of the README"
    ${PYTHON} ${SOURCE_DIR}/Tests/consumer/readme_programs.py ${SOURCE_DIR}/README.md ${WORK_DIR}/readme)
file(GLOB programs ${WORK_DIR}/readme/*.cpp)
foreach(program ${programs})
    get_filename_component(name ${program} NAME_WE)
    file(STRINGS ${program} plays REGEX "<ZarnAudio/")
    set(flags ${zarncore})
    if(plays)
        set(flags ${zarnaudio})
    endif()
    step("build ${name}" ${CXX} ${program} -o ${WORK_DIR}/readme/${name} ${flags})
    step("run ${name}" ${WORK_DIR}/readme/${name} ${sample} ${WORK_DIR}/${name}.zarn)
endforeach()
