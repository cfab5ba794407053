# Fails unless PROGRAM succeeds and prints the text of the file EXPECTED.
execute_process(COMMAND "${PROGRAM}" OUTPUT_VARIABLE printed RESULT_VARIABLE result)
file(READ "${EXPECTED}" expected)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} ends with ${result} after printing\n${printed}")
elseif(NOT printed STREQUAL expected)
    message(FATAL_ERROR "${PROGRAM} prints\n${printed}The page says\n${expected}")
endif()
