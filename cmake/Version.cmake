# The version is the last tag that the checkout comes from, as v1.0.0, and the day of its last commit; what is built without
# git, or from a checkout without tags, has those below.
set(LANTOS_VERSION 1.0.0)
set(LANTOS_CHANGED "Thu, 01 Jan 2026 00:00:00 +0000")
set(LANTOS_DATE 2026-01-01)

find_program(GIT git)
if(GIT AND EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/.git)
  execute_process(COMMAND ${GIT} describe --tags --abbrev=0 --match v[0-9]* WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
    OUTPUT_VARIABLE tag OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(tag MATCHES "^v([0-9]+\\.[0-9]+\\.[0-9]+)$")
    set(LANTOS_VERSION ${CMAKE_MATCH_1})
  endif()
  execute_process(COMMAND ${GIT} log -1 --format=%cs|%cD WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
    OUTPUT_VARIABLE day OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(day MATCHES "^([^|]+)\\|(.+)$")
    set(LANTOS_DATE ${CMAKE_MATCH_1})
    set(LANTOS_CHANGED ${CMAKE_MATCH_2})
  endif()
endif()

# Told to those few sources alone that ask for it: a new version compiles nothing else anew.
function(tell_version)
  string(REGEX MATCHALL "[0-9]+" numbers ${LANTOS_VERSION})
  list(GET numbers 0 major)
  list(GET numbers 1 minor)
  list(GET numbers 2 revision)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_PRECOMPILE_HEADERS ON COMPILE_DEFINITIONS
    "LANTOS_VERSION_MAJOR=${major};LANTOS_VERSION_MINOR=${minor};LANTOS_VERSION_REVISION=${revision}")
endfunction()
