# Fails unless the README shows the example that is built, whole.
file(READ "${README}" readme)
file(READ "${EXAMPLE}" example)
string(FIND "${readme}" "```cpp\n${example}```" place)
if(place EQUAL -1)
    message(FATAL_ERROR "README.md doesn't show ${EXAMPLE} as it stands")
endif()
