# Writes to the header FILE which commit of the folder SOURCE is built; "unknown" outside of a repository.
cmake_minimum_required(VERSION 3.22)
execute_process(
    COMMAND git describe --always --abbrev=12 --exclude=* "--dirty= with changes"
    WORKING_DIRECTORY "${SOURCE}"
    OUTPUT_VARIABLE commit
    OUTPUT_STRIP_TRAILING_WHITESPACE
    ERROR_QUIET
)
if(NOT commit)
    set(commit unknown)
endif()
file(CONFIGURE OUTPUT "${FILE}" CONTENT "#pragma once\n\n#define TAV_COMMIT \"@commit@\"\n" @ONLY) # leaves an equal file alone
