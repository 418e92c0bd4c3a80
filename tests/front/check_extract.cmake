# Runs the extract example on a file with one picture track and two sound tracks.
#
#   PROGRAM, ARGUMENT   what is run
#   SCRATCH_DIR         where the tracks go

file(REMOVE_RECURSE "${SCRATCH_DIR}")
execute_process(COMMAND "${PROGRAM}" "${ARGUMENT}" "${SCRATCH_DIR}"
    RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
set(expected
"picture-15010500.bin 294986 bytes
sound-16020300.bin 192000 bytes
sound-16020301.bin 192000 bytes
")
if(NOT status EQUAL 0 OR NOT out STREQUAL expected)
    message(FATAL_ERROR "exit status ${status}\n${out}${err}")
endif()
foreach(line IN ITEMS "picture-15010500.bin;294986" "sound-16020300.bin;192000")
    list(GET line 0 name)
    list(GET line 1 size)
    file(SIZE "${SCRATCH_DIR}/${name}" written)
    if(NOT written EQUAL size)
        message(FATAL_ERROR "${name} has ${written} bytes")
    endif()
endforeach()

set(input "${SCRATCH_DIR}/sound-16020300.bin")
file(COPY_FILE "${ARGUMENT}" "${input}")
execute_process(COMMAND "${PROGRAM}" "${input}" "${SCRATCH_DIR}"
    RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${ARGUMENT}" "${input}"
    RESULT_VARIABLE changed)
if(NOT status EQUAL 2 OR NOT err MATCHES "sound-16020300.bin: it is the input\n$" OR changed)
    message(FATAL_ERROR "exit status ${status}\n${out}${err}")
endif()
