# Fails unless the file README contains the text of the file PROGRAM.
file(READ "${README}" readme)
file(READ "${PROGRAM}" program)
string(FIND "${readme}" "```c\n${program}```\n" position)
if(position EQUAL -1)
    message(FATAL_ERROR "${README} does not show ${PROGRAM} as it is")
endif()
