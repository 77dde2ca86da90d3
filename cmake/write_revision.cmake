# Writes the revision that the sources are of to a C++ file; the file is touched only when that has
# changed. Run at each build: cmake -D SOURCE=<folder> -D TEMPLATE=<file> -D OUTPUT=<file> -P ...
#
# "unknown" where there is no git or where the sources are no repository of their own, as from an
# archive; "-modified" when they are not as committed.

function(git result)
  execute_process(COMMAND git -C ${SOURCE} ${ARGN} OUTPUT_VARIABLE output ERROR_QUIET RESULT_VARIABLE failure
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(failure)
    set(output "")
  endif()
  set(${result} "${output}" PARENT_SCOPE)
endfunction()

set(QUOR_REVISION unknown)
git(top rev-parse --show-toplevel)
if(top STREQUAL SOURCE)
  git(revision describe --always --abbrev=10 --exclude=* --dirty=-modified)
  if(revision)
    set(QUOR_REVISION ${revision})
  endif()
endif()
configure_file(${TEMPLATE} ${OUTPUT} @ONLY)
