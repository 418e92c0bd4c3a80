cmake_minimum_required(VERSION 3.25)

set(prefix "${SCRATCH_DIR}/prefix")

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(expect_version)
    execute_process(COMMAND ${ARGV}
        OUTPUT_VARIABLE output OUTPUT_STRIP_TRAILING_WHITESPACE
        COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
    if(NOT output STREQUAL EXPECTED_VERSION)
        message(FATAL_ERROR "expected version ${EXPECTED_VERSION}, got \"${output}\"")
    endif()
endfunction()

# Installed in one place and used from another: what is installed must bear being moved.
file(REMOVE_RECURSE "${SCRATCH_DIR}")
run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${SCRATCH_DIR}/staging")
file(RENAME "${SCRATCH_DIR}/staging" "${prefix}")

if(HAS_TOOL)
    execute_process(COMMAND "${prefix}/bin/vexa" --version
        OUTPUT_VARIABLE output COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
    file(READ "${prefix}/share/man/man1/vexa.1" man_page)
    if(NOT output STREQUAL "vexa ${EXPECTED_VERSION}\n" OR
       NOT man_page MATCHES "\"vexa ${EXPECTED_VERSION}\"" OR
       NOT EXISTS "${prefix}/share/bash-completion/completions/vexa")
        message(FATAL_ERROR "the command is not installed whole: ${output}")
    endif()
endif()

run("${CMAKE_COMMAND}" -S "${CONSUMER_DIR}" -B "${SCRATCH_DIR}/build" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${prefix}"
    "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}"
    "-DCMAKE_CXX_COMPILER=${CXX}"
    "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}")
run("${CMAKE_COMMAND}" --build "${SCRATCH_DIR}/build")
expect_version("${SCRATCH_DIR}/build/consumer")
run("${SCRATCH_DIR}/build/exports")

set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
expect_version("${PKG_CONFIG}" --modversion vexa)
execute_process(COMMAND "${PKG_CONFIG}" --cflags --libs vexa
    OUTPUT_VARIABLE pkg_config_flags OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(pkg_config_flags UNIX_COMMAND "${pkg_config_flags}")
separate_arguments(cxx_flags UNIX_COMMAND "${CXX_FLAGS}")
run("${CXX}" -std=c++17 -Wall -Wextra -Wpedantic -Werror ${cxx_flags}
    "${CONSUMER_DIR}/main.cpp" -o "${SCRATCH_DIR}/consumer_by_pkg_config" ${pkg_config_flags})
expect_version("${CMAKE_COMMAND}" -E env "LD_LIBRARY_PATH=${prefix}/${LIBDIR}"
    "${SCRATCH_DIR}/consumer_by_pkg_config")
