# What `vexa extract` writes, by content: the Wave files hold the samples that an independent decoder
# delivers. What it leaves alone, and what it leaves behind when it fails.
#
#   PROGRAM, DATA_DIR, SEEDS_DIR, SCRATCH_DIR

file(REMOVE_RECURSE "${SCRATCH_DIR}")

macro(extract expected_status)
    execute_process(COMMAND "${PROGRAM}" extract ${ARGN}
        RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT status EQUAL "${expected_status}")
        message(FATAL_ERROR "extract ${ARGN}: exit status ${status}\n${out}${err}")
    endif()
endmacro()

# The arguments are the files that a directory must hold, each with the beginning of its SHA-256.
function(expect_files directory)
    file(GLOB found RELATIVE "${directory}" "${directory}/*")
    set(hashed)
    foreach(name IN LISTS found)
        file(SHA256 "${directory}/${name}" hash)
        string(SUBSTRING "${hash}" 0 16 hash)
        list(APPEND hashed "${name} ${hash}")
    endforeach()
    if(NOT hashed STREQUAL ARGN)
        message(FATAL_ERROR "${directory} holds\n${hashed}\nexpected\n${ARGN}")
    endif()
endfunction()

extract(0 "${DATA_DIR}/longgop_25p_2ch.mxf" "${SCRATCH_DIR}/mpeg2")
if(NOT out STREQUAL
"picture-15010500.m2v 294986 bytes
sound-16020300.wav 192080 bytes
sound-16020301.wav 192080 bytes
")
    message(FATAL_ERROR "${out}")
endif()
expect_files("${SCRATCH_DIR}/mpeg2"
    "picture-15010500.m2v 50bece6943b8c085"
    "sound-16020300.wav 658240f3e7284be6"
    "sound-16020301.wav c24a7cc4aa168b38")

extract(0 "${DATA_DIR}/d10_30_625.mxf" "${SCRATCH_DIR}/d10")
expect_files("${SCRATCH_DIR}/d10"
    "picture-05010100.m2v a08c977d1ed9d7e9" "sound-06011000.wav 60e8220e525bb425")

extract(0 --raw "${DATA_DIR}/d10_30_625.mxf" "${SCRATCH_DIR}/raw")
expect_files("${SCRATCH_DIR}/raw"
    "picture-05010100.bin a08c977d1ed9d7e9" "sound-06011000.bin b97418151e2d68c1")

extract(0 "${DATA_DIR}/avc_longgop_50p.mxf" "${SCRATCH_DIR}/avc")
expect_files("${SCRATCH_DIR}/avc"
    "picture-15010500.h264 223827e46eef8e11" "sound-16010300.wav d30de38989b98987")

extract(1 "${SEEDS_DIR}/repeated_metadata.mxf" "${SCRATCH_DIR}/documents")
expect_files("${SCRATCH_DIR}/documents"
    "metadata-2.xml 197a4c7f6c76858f" "metadata.xml 7fb87780ccd53ac5"
    "picture-15010500.bin 1a72b4e0628ad238" "sound-16010100-2.bin 0488cd1104793edb" "sound-16010100.bin c6c6c0fbd701afb2")

# One track, to a pipe; the lengths in its header are not known.
execute_process(
    COMMAND "${PROGRAM}" extract --track 16020301 -o - "${DATA_DIR}/longgop_25p_2ch.mxf"
    RESULT_VARIABLE status OUTPUT_FILE "${SCRATCH_DIR}/raw/piped.wav" ERROR_VARIABLE err)
file(READ "${SCRATCH_DIR}/raw/piped.wav" header LIMIT 44 HEX)
file(READ "${SCRATCH_DIR}/raw/piped.wav" piped OFFSET 44 HEX)
file(READ "${SCRATCH_DIR}/mpeg2/sound-16020301.wav" samples OFFSET 80 HEX)
if(NOT status EQUAL 0 OR NOT piped STREQUAL samples OR NOT header MATCHES
   "^52494646ffffffff57415645666d7420100000000100010080bb0000007701000200100064617461ffffffff$")
    message(FATAL_ERROR "exit status ${status}\n${header}\n${err}")
endif()
extract(2 --track 16020307 -o "${SCRATCH_DIR}/none.wav" "${DATA_DIR}/longgop_25p_2ch.mxf")
if(NOT err MATCHES "has no track 16020307\n$" OR EXISTS "${SCRATCH_DIR}/none.wav")
    message(FATAL_ERROR "${err}")
endif()

# What could be read of a file that is cut.
extract(2 "${DATA_DIR}/longgop_25p_truncated.mxf" "${SCRATCH_DIR}/cut")
expect_files("${SCRATCH_DIR}/cut"
    "picture-15010500.m2v 9f5ca6df81a81226" "sound-16020300.wav 8b59e44c01120482" "sound-16020301.wav ad076e6dd4c7efd4")

extract(2 "${DATA_DIR}/missing.mxf" "${SCRATCH_DIR}/missing")
if(NOT err MATCHES "^vexa extract: [^\n]*missing.mxf: bad open[^\n]*\n$")
    message(FATAL_ERROR "${err}")
endif()

# A file that can't be written: the others are not left half written.
file(MAKE_DIRECTORY "${SCRATCH_DIR}/failed/sound-16020301.wav")
extract(2 "${DATA_DIR}/longgop_25p_2ch.mxf" "${SCRATCH_DIR}/failed")
file(GLOB left RELATIVE "${SCRATCH_DIR}" "${SCRATCH_DIR}/failed/*")
if(NOT left STREQUAL "failed/sound-16020301.wav" OR NOT err MATCHES "can't write ")
    message(FATAL_ERROR "${left}\n${err}")
endif()

# The input itself.
set(input "${SCRATCH_DIR}/input/sound-16020300.wav")
file(COPY_FILE "${DATA_DIR}/longgop_25p_2ch.mxf" "${SCRATCH_DIR}/input.mxf")
file(MAKE_DIRECTORY "${SCRATCH_DIR}/input")
file(RENAME "${SCRATCH_DIR}/input.mxf" "${input}")
extract(2 "${input}" "${SCRATCH_DIR}/input")
file(SHA256 "${input}" after)
file(SHA256 "${DATA_DIR}/longgop_25p_2ch.mxf" before)
if(NOT err MATCHES "sound-16020300.wav: it is the input\n$" OR NOT after STREQUAL before)
    message(FATAL_ERROR "${err}")
endif()
