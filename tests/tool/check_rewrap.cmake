# `vexa rewrap`: that its own files come back byte for byte, that essence stays as it is, that an index
# follows its essence, and what is left where it fails.
#
#   PROGRAM, DATA_DIR, SCRATCH_DIR

file(REMOVE_RECURSE "${SCRATCH_DIR}")

macro(rewrap expected_status)
    execute_process(COMMAND "${PROGRAM}" rewrap ${ARGN}
        RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT status EQUAL "${expected_status}")
        message(FATAL_ERROR "rewrap ${ARGN}: exit status ${status}\n${out}${err}")
    endif()
endmacro()

function(expect_same first second)
    file(SHA256 "${first}" first_hash)
    file(SHA256 "${second}" second_hash)
    if(NOT first_hash STREQUAL second_hash)
        message(FATAL_ERROR "${first} and ${second} differ")
    endif()
endfunction()

# The elements of each track as they are, and what the file says of them.
function(expect_same_essence first second)
    foreach(side IN ITEMS first second)
        set(directory "${SCRATCH_DIR}/essence-${side}")
        file(REMOVE_RECURSE "${directory}")
        execute_process(COMMAND "${PROGRAM}" extract --raw "${${side}}" "${directory}"
            OUTPUT_VARIABLE ${side}_tracks ERROR_QUIET)
    endforeach()
    if(NOT first_tracks STREQUAL second_tracks OR first_tracks STREQUAL "")
        message(FATAL_ERROR "${first} has\n${first_tracks}${second}\n${second_tracks}")
    endif()
    file(GLOB tracks RELATIVE "${SCRATCH_DIR}/essence-first" "${SCRATCH_DIR}/essence-first/*")
    foreach(track IN LISTS tracks)
        expect_same("${SCRATCH_DIR}/essence-first/${track}" "${SCRATCH_DIR}/essence-second/${track}")
    endforeach()
endfunction()

foreach(sample IN ITEMS "0 longgop_25p_2ch" "0 longgop_2997_dropframe" "1 longgop_25p_run_in"
                        "1 longgop_25p_second_writer" "0 uncompressed_second_writer" "0 d10_30_625"
                        "0 avc_longgop_50p" "0 vc3_720p25_clip_wrapped" "0 rewrap/aligned"
                        "0 rewrap/loose")
    string(REPLACE " " ";" sample "${sample}")
    list(GET sample 0 expected_status)
    list(GET sample 1 name)
    set(input "${DATA_DIR}/${name}.mxf")
    set(once "${SCRATCH_DIR}/${name}.mxf")
    rewrap("${expected_status}" "${input}" "${once}")
    expect_same_essence("${input}" "${once}")
    execute_process(COMMAND "${PROGRAM}" rewrap "${once}" "${SCRATCH_DIR}/twice.mxf" ERROR_QUIET)
    expect_same("${once}" "${SCRATCH_DIR}/twice.mxf")
endforeach()
# They differ in the fill between elements, and so in their index tables.
expect_same("${SCRATCH_DIR}/rewrap/aligned.mxf" "${SCRATCH_DIR}/rewrap/loose.mxf")

rewrap(2 "${DATA_DIR}/longgop_25p_truncated.mxf" "${SCRATCH_DIR}/failed/out.mxf")
rewrap(2 "${DATA_DIR}/missing.mxf" "${SCRATCH_DIR}/failed/out.mxf")
file(GLOB left "${SCRATCH_DIR}/failed/*")
if(NOT left STREQUAL "" OR NOT err MATCHES "^vexa rewrap: [^\n]*missing.mxf: bad open[^\n]*\n$")
    message(FATAL_ERROR "${left}\n${err}")
endif()

set(input "${SCRATCH_DIR}/input.mxf")
file(COPY_FILE "${DATA_DIR}/avc_longgop_50p.mxf" "${input}")
rewrap(2 "${input}" "${input}")
expect_same("${input}" "${DATA_DIR}/avc_longgop_50p.mxf")
