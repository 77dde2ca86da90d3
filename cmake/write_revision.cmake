# Writes the sources' revision to a C++ file; changes the file only if the revision differs. Run it
# at each build: cmake -D SOURCE=<folder> -D TEMPLATE=<file> -D OUTPUT=<file> -P ...
#
# The revision is "unknown" without git or if the sources are not a repository of their own, as in
# an archive; "-modified" is appended if there are uncommitted changes.

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
