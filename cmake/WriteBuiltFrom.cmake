# Writes to the header FILE what is built: the text BUILT_FROM or, when that is empty, the commit of the folder SOURCE.
cmake_minimum_required(VERSION 3.22)
if(NOT BUILT_FROM)
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
    set(BUILT_FROM "commit ${commit}")
endif()
file(CONFIGURE OUTPUT "${FILE}" CONTENT "#pragma once\n\n#define TAV_BUILT_FROM \"@BUILT_FROM@\"\n" @ONLY) # leaves an equal file alone
