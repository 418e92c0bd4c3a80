# Runs the command and holds it to what it must answer.
#
#   PROGRAM, ARGUMENTS  what is run; the arguments are a list
#   STATUS              exit status
#   STDOUT_FILE         a file with its whole standard output; unset: not compared
#   STDOUT              a regular expression for it; unset: not compared
#   STDERR              a regular expression for its standard error

execute_process(COMMAND "${PROGRAM}" ${ARGUMENTS}
    RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT status STREQUAL STATUS)
    message(FATAL_ERROR "exit status ${status}, expected ${STATUS}\n${out}${err}")
endif()
if(DEFINED STDOUT_FILE)
    file(READ "${STDOUT_FILE}" expected)
    if(NOT out STREQUAL expected)
        message(FATAL_ERROR "standard output is\n${out}expected\n${expected}")
    endif()
endif()
if(DEFINED STDOUT AND NOT out MATCHES "${STDOUT}")
    message(FATAL_ERROR "standard output is\n${out}expected\n${STDOUT}")
endif()
if(NOT err MATCHES "${STDERR}")
    message(FATAL_ERROR "standard error is\n${err}expected\n${STDERR}")
endif()
