# Holds the fields of `vexa inspect --json` to their documentation, both ways, and some of them to
# their values; a document for each file, whatever it is.
#
#   PROGRAM, DATA_DIR, SEEDS_DIR, DOCUMENTATION

set(fields)

# Sets `document`, and adds its fields; those within "properties" are the set classes' own.
macro(inspect file expected_status)
    execute_process(COMMAND "${PROGRAM}" inspect --json --edit-units "${file}"
        RESULT_VARIABLE status OUTPUT_VARIABLE document ERROR_VARIABLE err)
    if(NOT status EQUAL "${expected_status}" OR NOT err STREQUAL "" OR
       NOT document MATCHES "^{[^\n]*}\n$")
        message(FATAL_ERROR "${file}: exit status ${status}\n${document}${err}")
    endif()
    expect("${expected_status}" status)
    string(REGEX REPLACE "[][;\\\\]" "" text "${document}")
    string(REGEX REPLACE "\"properties\":{([^{}]|{[^{}]*})*}" "\"properties\":0" text "${text}")
    string(REGEX MATCHALL "\"[A-Za-z]+\":" names "${text}")
    list(APPEND fields ${names})
endmacro()

function(expect value)
    string(JSON found GET "${document}" ${ARGN})
    if(NOT found STREQUAL value)
        message(FATAL_ERROR "${ARGN} is ${found}, expected ${value}")
    endif()
endfunction()

inspect("${DATA_DIR}/longgop_25p_2ch.mxf" 0)
expect("OP1a" partitions 0 operationalPattern name)
expect("Preface" partitions 0 metadata objects 0 class)
expect("259" partitions 0 metadata objects 0 properties version)
expect("192000" essence 0 tracks 2 bytes)
expect("10:00:01:24" essence 0 lastUserStamp)
inspect("${DATA_DIR}/longgop_25p_run_in.mxf" 1)
expect("1006" runIn)
inspect("${DATA_DIR}/longgop_25p_truncated.mxf" 2)
expect("unsuccessful read() (the file ends early)" error)
expect("3840" essence 0 cutElement bytes)
expect("4C4A0001" reports 9 code)
inspect("${SEEDS_DIR}/repeated_metadata.mxf" 1)
expect("0" partitions 3 metadata sameAs)
expect("<second/>" partitions 4 metadata documents 0 firstLine)
expect("26" moreReports 0 count)
inspect("${DATA_DIR}/missing.mxf" 2)
inspect("${DATA_DIR}" 2)
expect("it is a directory" error)

file(READ "${DOCUMENTATION}" documentation)
string(REGEX REPLACE "[][;]" "" documentation "${documentation}")
string(REGEX MATCHALL "\n\\|[^|]*\\|" documented "${documentation}")
string(REGEX MATCHALL "`[A-Za-z]+`" documented "${documented}")
foreach(names IN ITEMS fields documented)
    list(TRANSFORM ${names} REPLACE "[\":`]" "")
    list(REMOVE_DUPLICATES ${names})
    list(SORT ${names})
endforeach()
if(NOT fields STREQUAL documented)
    message(FATAL_ERROR "fields\n${fields}\ndocumented\n${documented}")
endif()
