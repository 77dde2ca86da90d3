# The -win32 compilers: the -posix ones' runtime brings a thread library into Outlook's process that
# installs a first-chance exception handler. The price: there is no std::thread and no std::mutex.
set(CMAKE_C_COMPILER ${QUOR_TRIPLE}-gcc-win32)
set(CMAKE_CXX_COMPILER ${QUOR_TRIPLE}-g++-win32)
set(CMAKE_RC_COMPILER ${QUOR_TRIPLE}-windres)
set(QUOR_WIDL ${QUOR_TRIPLE}-widl)
set(CMAKE_FIND_ROOT_PATH /usr/${QUOR_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
